#include "files/zip/ZipNames.h"

#include "platform/base/Encoding.h"
#include "platform/base/Utf8.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr UINT OLD_NAME_PAGE = 437; // what names are in that are no UTF-8
constexpr std::u16string_view UPWARDS = u"..";
constexpr std::string_view STORED_EXTENSIONS[] = {".zip", ".zoo", ".arc", ".lzh",
                                                  ".arj", ".gz",  ".tgz"};

/// Behind the last component that leads upwards; 0 if there is none.
std::size_t EndOfLastUpwards(std::u16string_view name)
{
    for (std::size_t end = name.size();;)
    {
        std::size_t start = end;
        while (start > 0 && !IsZipSeparator(name[start - 1]))
            --start;
        if (name.substr(start, end - start) == UPWARDS)
            return end;
        if (start == 0)
            return 0;
        end = start - 1;
    }
}

bool BeginsUpwards(std::u16string_view name)
{
    return name.starts_with(UPWARDS) && (name.size() == 2 || IsZipSeparator(name[2]));
}

char LowerLetter(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

} // namespace

std::u16string DecodeZipName(std::string_view bytes)
{
    std::u16string name(bytes.size(), 0);
    if (utf8::IsWellFormed(bytes))
        name.resize(utf8::Decode(bytes, name.data()));
    else
        name = FromBytes(OLD_NAME_PAGE, bytes).View();
    return name;
}

std::u16string_view CleanZipName(std::u16string_view name)
{
    name.remove_prefix(EndOfLastUpwards(name));
    for (;;)
    {
        if (!name.empty() && IsZipSeparator(name.front()))
            name.remove_prefix(1);
        else if (name.size() >= 2 && name[1] == u':')
            name.remove_prefix(2);
        else if (BeginsUpwards(name)) // behind a drive
            name.remove_prefix(UPWARDS.size());
        else
            return name;
    }
}

bool IsStoredZipName(std::string_view name)
{
    const std::size_t separator = name.find_last_of('/');
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || (separator != std::string_view::npos && dot < separator))
        return false;
    std::string extension(name.substr(dot));
    std::ranges::transform(extension, extension.begin(), LowerLetter);
    return std::ranges::find(STORED_EXTENSIONS, extension) != std::end(STORED_EXTENSIONS);
}

} // namespace utility
