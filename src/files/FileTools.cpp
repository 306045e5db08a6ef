#include "files/FileTools.h"

#include "frame/AppError.h"
#include "frame/AppMessageBox.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/object/Exception.h"
#include "platform/system/SystemMessage.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/FileStatus.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "resources/StringIds.h"

namespace utility
{

namespace
{

bool FailOnFile(UINT id, const CString& path, DWORD code)
{
    CAppError::SetLastError(id, NativePath(path), GetSystemMessage(code));
    return false;
}

bool IsReadOnly(const CString& path)
{
    CFileStatus status;
    return CFile::GetStatus(path, status) && status.IsReadOnly();
}

} // namespace

bool IsFileWriteable(const CString& path)
{
    CFileStatus status;
    if (!CFile::GetStatus(path, status))
    {
        const DWORD code = GetLastError();
        return code == ERROR_FILE_NOT_FOUND || FailOnFile(IDS_CANNOT_TELL_READ_ONLY, path, code);
    }
    if (!status.IsReadOnly())
        return true;
    CAppError::SetLastError(IDS_FILE_READ_ONLY, NativePath(path));
    return false;
}

bool MakeFileWriteable(const CString& path)
{
    if (IsFileWriteable(path))
        return true;
    if (!IsReadOnly(path))
        return false; // the reason is already recorded
    const CString question = CAppError::GetErrorString(IDS_OVERWRITE_READ_ONLY, NativePath(path));
    if (CAppMessageBox::Show(question, MB_YESNO | MB_ICONQUESTION, 0) == IDYES)
        return SetFileReadOnly(path, false);
    CAppError::SetLastError(IDS_FILE_READ_ONLY, NativePath(path));
    return false;
}

bool SetFileAttrib(const CString& path, DWORD attribute, bool set)
{
    CFileStatus status;
    if (!CFile::GetStatus(path, status))
        return FailOnFile(IDS_CANNOT_CHANGE_PROPERTIES, path, GetLastError());
    status.m_attribute = set ? status.m_attribute | attribute : status.m_attribute & ~attribute;
    status.m_ctime = CTime();
    try
    {
        CFile::SetStatus(path, status);
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return FailOnFile(IDS_CANNOT_CHANGE_PROPERTIES, path,
                          static_cast<DWORD>(exception->m_lOsError));
    }
    return true;
}

bool SetFileReadOnly(const CString& path, bool readOnly)
{
    return SetFileAttrib(path, CFileStatus::readOnly, readOnly);
}

bool ForceDeleteFile(const CString& path)
{
    if (IsReadOnly(path) && !SetFileReadOnly(path, false))
        return false;
    return DeleteFileW(path);
}

} // namespace utility
