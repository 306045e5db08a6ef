#include "files/TempFiles.h"

#include "platform/system/KnownFolders.h"

namespace utility
{

namespace
{

constexpr char16_t NAME_PREFIX[] = u"utl";

} // namespace

CString GetTempFolder()
{
    return GetTempPathW();
}

CString GetTempFile()
{
    CString file;
    const CString folder = GetTempFolder();
    return !folder.IsEmpty() && GetTempFileNameW(folder, NAME_PREFIX, file) ? file : CString();
}

} // namespace utility
