#include "files/MD5Text.h"

#include "files/FilePath.h"
#include "files/MD5Checksum.h"

#include <string>

namespace utility
{

CString GetMD5(const CString& text)
{
    std::basic_string<unsigned char> bytes;
    bytes.reserve(text.View().size());
    for (const char16_t unit : text.View())
        bytes += static_cast<unsigned char>(unit);
    CString digest = CMD5Checksum::GetMD5(bytes.data(), static_cast<unsigned int>(bytes.size()));
    digest.MakeUpper();
    return digest;
}

CString GetMD5(const CFilePath& path)
{
    CString digest = CMD5Checksum::GetMD5(path.GetPath());
    digest.MakeUpper();
    return digest;
}

} // namespace utility
