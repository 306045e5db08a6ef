#include "utility/zip/ZipArchive.h"

#include "files/zip/ZipResult.h"
#include "platform/base/Encoding.h"
#include "platform/system/file/NativePath.h"
#include "text/match/StringMatch.h"

#include "utility/command/Command.h"
#include "utility/output/ToolOutput.h"
#include "utility/zip/ZipPassword.h"
#include "utility/zip/ZipWords.h"

#include <algorithm>
#include <limits>

namespace utility
{

namespace
{

constexpr unsigned PIECE = 256 * 1024;

} // namespace

ZRESULT CZipArchive::Open(const CCommandCall& call)
{
    CString password;
    if (!ReadZipPassword(call, false, password))
        return ZIP_PASSWORD;
    const CString path = call.GetArgument(0);
    m_Zip = OpenZip(path, ToUtf8(password.View()).c_str());
    if (m_Zip)
        return ZIP_SUCCESS;
    const ZRESULT code = GetLastZipResultU();
    PrintError(NativePath(path) + u": " + ZipReadWords(code));
    return code;
}

ZIPENTRYINFO CZipArchive::GetInfo(int index) const
{
    ZIPENTRYINFO info;
    GetZipItemInfo(m_Zip, index, &info);
    return info;
}

ZIPENTRY CZipArchive::GetEntry(int index) const
{
    ZIPENTRY entry{};
    GetZipItem(m_Zip, index, &entry);
    return entry;
}

bool CZipArchive::Select(const CCommandCall& call, std::vector<int>& entries) const
{
    const std::vector<CString>& arguments = call.GetArguments();
    const auto isWanted = [&](const CString& name)
    {
        return arguments.size() < 2 || std::any_of(arguments.begin() + 1, arguments.end(),
                                                   [&](const CString& pattern)
                                                   { return StringMatch(pattern, name, false); });
    };
    const int count = GetEntry(-1).index;
    for (int index = 0; index < count; ++index)
    {
        if (isWanted(GetInfo(index).name))
            entries.push_back(index);
    }
    const bool hasFound = !entries.empty() || arguments.size() < 2;
    if (!hasFound)
        PrintError(NativePath(call.GetArgument(0)) + u": no entry fits");
    return hasFound;
}

std::uint64_t CZipArchive::SumSizes(const std::vector<int>& entries) const
{
    constexpr std::uint64_t LIMIT = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t sum = 0;
    for (const int index : entries)
    {
        const std::uint64_t size = GetInfo(index).unc_size;
        sum = size > LIMIT - sum ? LIMIT : sum + size;
    }
    return sum;
}

ZRESULT CZipArchive::Read(int index, const std::function<bool(std::string_view piece)>& use) const
{
    std::vector<char> buffer(PIECE);
    for (std::uint64_t left = GetInfo(index).unc_size;;)
    {
        const ZRESULT code = UnzipItem(m_Zip, index, buffer.data(), PIECE);
        if (code != ZIP_SUCCESS && code != ZIP_MORE)
            return code;
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(left, PIECE));
        left -= count;
        if (!use(std::string_view(buffer.data(), count)))
            return ZIP_MORE;
        if (code == ZIP_SUCCESS)
            return code;
    }
}

} // namespace utility
