#include "utility/host/PasswordFile.h"

#include "files/encoded/StdioFileEx.h"
#include "frame/AppError.h"
#include "platform/base/Encoding.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/NativePath.h"
#include "resources/StringIds.h"

#include "utility/output/ToolOutput.h"

#include <filesystem>

namespace utility
{

namespace
{

bool MayOthersRead(const CString& path)
{
    using std::filesystem::perms;
    std::error_code failure;
    const std::filesystem::file_status status =
        std::filesystem::status(ToUtf8(NativePath(path).View()), failure);
    return !failure &&
           (status.permissions() & (perms::group_read | perms::others_read)) != perms::none;
}

bool Refuse(const CString& path, const CString& reason)
{
    CAppError::SetLastError(IDS_PLAIN_TEXT, NativePath(path) + u": " + reason);
    return false;
}

} // namespace

bool ReadPasswordFile(const CString& path, CString& password)
{
    CString line;
    try
    {
        CStdioFileEx file;
        if (!file.Open(path, CFile::modeRead))
            return Refuse(path, CAppError::GetLastErrorString());
        file.ReadString(line);
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return Refuse(path, exception->GetErrorText());
    }
    if (line.IsEmpty())
        return Refuse(path, u"its first line is empty, so it is no password");
    if (MayOthersRead(path))
        PrintError(u"warning: other users may read the password in " + NativePath(path));
    password = line;
    return true;
}

} // namespace utility
