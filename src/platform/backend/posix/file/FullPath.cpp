#include "platform/backend/posix/file/DriveMap.h"
#include "platform/system/file/FileCalls.h"

#include <vector>

namespace utility
{

namespace
{

constexpr std::u16string_view ITSELF = u".";
constexpr std::u16string_view PARENT = u"..";

/// The components of a path behind its root, "." left out and ".." folded as text.
std::vector<std::u16string_view> FoldComponents(std::u16string_view rest)
{
    std::vector<std::u16string_view> components;
    while (!rest.empty())
    {
        std::size_t length = 0;
        while (length < rest.size() && !IsSeparator(rest[length]))
            ++length;
        const std::u16string_view component = rest.substr(0, length);
        rest.remove_prefix(std::min(length + 1, rest.size()));
        if (component == PARENT)
        {
            if (!components.empty())
                components.pop_back();
        }
        else if (!component.empty() && component != ITSELF)
            components.push_back(component);
    }
    return components;
}

} // namespace

CString GetFullPathNameW(const char16_t* path)
{
    const CString given(path);
    if (given.IsEmpty())
        return CString();

    const std::size_t rootLength = GetRootLength(given.View());
    const std::u16string_view rest = given.View().substr(rootLength);
    const bool isRelative = rootLength <= 2 && (rest.empty() || !IsSeparator(rest.front()));
    const CString whole =
        isRelative ? GetCurrentDirectoryW() + u"\\" + CString(rest) : CString(rest);

    CString full(given.View().substr(0, rootLength));
    full.Replace(u'/', u'\\');
    for (const std::u16string_view component : FoldComponents(whole.View()))
    {
        full += u'\\';
        full += component;
    }
    const bool endsInSeparator = !rest.empty() && IsSeparator(rest.back());
    if (endsInSeparator || full.GetLength() == static_cast<int>(rootLength))
        full += u'\\';
    return full;
}

} // namespace utility
