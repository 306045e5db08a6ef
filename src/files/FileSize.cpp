#include "files/FileSize.h"

#include "platform/system/file/File.h"
#include "platform/system/file/FileStatus.h"

#include <string_view>

namespace utility
{

namespace
{

constexpr std::u16string_view PREFIXES = u" KMGTP";
constexpr double STEP = 1024.0;

} // namespace

std::int64_t GetFileSize(const CString& path)
{
    CFileStatus status;
    return CFile::GetStatus(path, status) ? status.m_size : 0;
}

CString ReadableFileSize(std::int64_t size)
{
    if (size == 0)
        return u"0";
    double value = static_cast<double>(size);
    std::size_t exponent = 0;
    while (value >= STEP && exponent + 1 < PREFIXES.size())
    {
        value /= STEP;
        ++exponent;
    }
    CString text;
    text.Format(u"%.2f %cB", value, PREFIXES[exponent]);
    return text;
}

CString ReadableFileSize(const CString& path)
{
    CFileStatus status;
    return CFile::GetStatus(path, status) ? ReadableFileSize(status.m_size) : CString();
}

} // namespace utility
