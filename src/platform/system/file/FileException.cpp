#include "platform/system/file/FileException.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/SystemMessage.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CFileException, CException)

CFileException::CFileException(int cause, LONG osError, const char16_t* fileName)
    : m_cause(cause),
      m_lOsError(osError),
      m_strFileName(fileName)
{
}

CString CFileException::GetErrorText() const
{
    return m_lOsError > 0 ? GetSystemMessage(static_cast<DWORD>(m_lOsError)) : CString();
}

int CFileException::OsErrorToException(LONG osError)
{
    switch (static_cast<DWORD>(osError))
    {
    case ERROR_SUCCESS:
        return none;
    case ERROR_FILE_NOT_FOUND:
        return fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
        return badPath;
    case ERROR_TOO_MANY_OPEN_FILES:
        return tooManyOpenFiles;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
    case ERROR_DIR_NOT_EMPTY:
        return accessDenied;
    case ERROR_INVALID_HANDLE:
        return invalidFile;
    case ERROR_SHARING_VIOLATION:
        return sharingViolation;
    case ERROR_LOCK_VIOLATION:
        return lockViolation;
    case ERROR_HANDLE_EOF:
        return endOfFile;
    case ERROR_DISK_FULL:
        return diskFull;
    case ERROR_GEN_FAILURE:
        return hardIO;
    default:
        return genericException;
    }
}

void CFileException::ThrowOsError(LONG osError, const char16_t* fileName)
{
    SetLastError(static_cast<DWORD>(osError));
    throw new CFileException(OsErrorToException(osError), osError, fileName);
}

} // namespace utility
