#include "platform/backend/posix/ErrorMap.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include <cerrno>

namespace utility
{

namespace
{

struct CErrorPair
{
    int m_Errno;
    DWORD m_Code;
};

// Read in both directions: of several pairs with one code, the first names its errno.
constexpr CErrorPair ERROR_PAIRS[] = {
    {ENOENT, ERROR_FILE_NOT_FOUND},
    {ENOTDIR, ERROR_PATH_NOT_FOUND},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {EACCES, ERROR_ACCESS_DENIED},
    {EPERM, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},
    {EBADF, ERROR_INVALID_HANDLE},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {EXDEV, ERROR_NOT_SAME_DEVICE},
    {EROFS, ERROR_WRITE_PROTECT},
    {EBUSY, ERROR_SHARING_VIOLATION},
    {ETXTBSY, ERROR_SHARING_VIOLATION},
    {EAGAIN, ERROR_LOCK_VIOLATION},
    {EDEADLK, ERROR_LOCK_VIOLATION},
    {ENOTSUP, ERROR_NOT_SUPPORTED},
    {ENOSYS, ERROR_NOT_SUPPORTED},
    {EHOSTUNREACH, ERROR_BAD_NETPATH},
    {ENETUNREACH, ERROR_BAD_NETPATH},
    {EINVAL, ERROR_INVALID_PARAMETER},
    {EPIPE, ERROR_BROKEN_PIPE},
    {ECONNRESET, ERROR_BROKEN_PIPE},
    {ENOSPC, ERROR_DISK_FULL},
    {EDQUOT, ERROR_DISK_FULL},
    {ETIMEDOUT, ERROR_SEM_TIMEOUT},
    {ENOTEMPTY, ERROR_DIR_NOT_EMPTY},
    {EEXIST, ERROR_ALREADY_EXISTS},
    {ENOEXEC, ERROR_BAD_EXE_FORMAT},
    {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
    {ECONNREFUSED, ERROR_CONNECTION_REFUSED},
};

/// Codes that a call reports by its own knowledge; their words are those of a plainer failure.
constexpr CErrorPair WORDED_CODES[] = {
    {ENOENT, ERROR_PATH_NOT_FOUND}, // on top of "not a folder": most often the folder is absent
    {EEXIST, ERROR_FILE_EXISTS},
};

} // namespace

DWORD ErrorFromErrno(int number)
{
    if (number == 0)
        return ERROR_SUCCESS;

    for (const CErrorPair& pair : ERROR_PAIRS)
    {
        if (pair.m_Errno == number)
            return pair.m_Code;
    }
    return ERROR_GEN_FAILURE;
}

DWORD ErrorFromErrno(int number, bool isParentThere)
{
    return number == ENOENT && !isParentThere ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(number);
}

int ErrnoFromError(DWORD code)
{
    for (const CErrorPair& pair : WORDED_CODES)
    {
        if (pair.m_Code == code)
            return pair.m_Errno;
    }
    for (const CErrorPair& pair : ERROR_PAIRS)
    {
        if (pair.m_Code == code)
            return pair.m_Errno;
    }
    return 0;
}

void SetLastErrorFromErrno()
{
    SetLastError(ErrorFromErrno(errno));
}

} // namespace utility
