#include "platform/backend/posix/file/FileHandle.h"

#include "platform/backend/posix/ErrorMap.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/OpenFile.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/String.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileHandle.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

namespace
{

/// The modes of CFile that mean the same; false for what has no meaning.
bool ModesOf(DWORD access, DWORD share, DWORD disposition, UINT& modes)
{
    if (access != GENERIC_READ && access != GENERIC_WRITE &&
        access != (GENERIC_READ | GENERIC_WRITE))
        return false;
    if (disposition != CREATE_ALWAYS && disposition != OPEN_EXISTING)
        return false;

    const bool reads = (access & GENERIC_READ) != 0;
    const bool writes = (access & GENERIC_WRITE) != 0;
    modes = reads && writes ? CFile::modeReadWrite : writes ? CFile::modeWrite : CFile::modeRead;
    const bool letsRead = (share & FILE_SHARE_READ) != 0;
    const bool letsWrite = (share & FILE_SHARE_WRITE) != 0;
    modes |= letsRead && letsWrite ? CFile::shareDenyNone
             : letsRead            ? CFile::shareDenyWrite
             : letsWrite           ? CFile::shareDenyRead
                                   : CFile::shareExclusive;
    if (disposition == CREATE_ALWAYS)
        modes |= CFile::modeCreate;
    return true;
}

bool Fail()
{
    SetLastErrorFromErrno();
    return false;
}

std::shared_ptr<CFileRecord> FindFile(HANDLE handle)
{
    return FindHandleAs<CFileRecord>(handle);
}

bool IsAllowed(bool may)
{
    if (!may)
        SetLastError(ERROR_ACCESS_DENIED);
    return may;
}

FILETIME FileTimeOf(const struct statx_timestamp& time)
{
    return CountToFileTime(FILETIME_OF_1970 + time.tv_sec * FILETIME_PER_SECOND +
                           time.tv_nsec / 100);
}

} // namespace

timespec TimeSpecOf(const FILETIME* time)
{
    if (!time)
        return {0, UTIME_OMIT};
    const std::int64_t count = FileTimeToCount(*time) - FILETIME_OF_1970;
    std::int64_t seconds = count / FILETIME_PER_SECOND;
    std::int64_t rest = count % FILETIME_PER_SECOND;
    if (rest < 0) // before 1970
    {
        --seconds;
        rest += FILETIME_PER_SECOND;
    }
    return {static_cast<time_t>(seconds), static_cast<long>(rest * 100)};
}

DWORD CFileRecord::Wait(DWORD milliseconds)
{
    struct stat status = {};
    if (fstat(GetDescriptor(), &status) == 0 && S_ISREG(status.st_mode))
        return WAIT_OBJECT_0;
    return WaitForDescriptor(GetDescriptor(), POLLIN, milliseconds);
}

HANDLE AddFileHandle(CDescriptor descriptor, bool mayRead, bool mayWrite)
{
    return AddHandle(std::make_shared<CFileRecord>(std::move(descriptor), mayRead, mayWrite));
}

HANDLE CreateFileW(const char16_t* path, DWORD access, DWORD share, DWORD disposition)
{
    UINT modes = 0;
    CDescriptor descriptor;
    DWORD code = ERROR_INVALID_PARAMETER;
    if (ModesOf(access, share, disposition, modes))
        code = OpenDescriptor(DiskPath(CString(path).View()), modes, descriptor);
    if (code == ERROR_SUCCESS)
        return AddFileHandle(std::move(descriptor), (access & GENERIC_READ) != 0,
                             (access & GENERIC_WRITE) != 0);
    SetLastError(code);
    return INVALID_HANDLE_VALUE;
}

bool CreatePipe(HANDLE& readEnd, HANDLE& writeEnd)
{
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC) != 0)
        return Fail();
    readEnd = AddFileHandle(CDescriptor(ends[0]), true, false);
    writeEnd = AddFileHandle(CDescriptor(ends[1]), false, true);
    return true;
}

bool ReadFile(HANDLE handle, void* bytes, DWORD count, DWORD& done)
{
    done = 0;
    const std::shared_ptr<CFileRecord> file = FindFile(handle);
    if (!file || !IsAllowed(file->MayRead()))
        return false;
    ssize_t length = 0;
    do
        length = read(file->GetDescriptor(), bytes, count);
    while (length < 0 && errno == EINTR);
    if (length < 0)
        return Fail();
    done = static_cast<DWORD>(length);
    return true;
}

bool WriteFile(HANDLE handle, const void* bytes, DWORD count, DWORD& done)
{
    done = 0;
    const std::shared_ptr<CFileRecord> file = FindFile(handle);
    if (!file || !IsAllowed(file->MayWrite()))
        return false;
    while (done < count)
    {
        const ssize_t length =
            write(file->GetDescriptor(), static_cast<const char*>(bytes) + done, count - done);
        if (length < 0 && errno == EINTR)
            continue;
        if (length < 0)
            return Fail();
        done += static_cast<DWORD>(length);
    }
    return true;
}

bool FlushFileBuffers(HANDLE handle)
{
    const std::shared_ptr<CFileRecord> file = FindFile(handle);
    // Pipes have nothing to wait for.
    return file && (fsync(file->GetDescriptor()) == 0 || errno == EINVAL || Fail());
}

bool SetFilePointerEx(HANDLE handle, std::int64_t distance, std::int64_t* place, DWORD from)
{
    const std::shared_ptr<CFileRecord> file = FindFile(handle);
    if (!file)
        return false;
    const int whence = from == FILE_BEGIN ? SEEK_SET : from == FILE_CURRENT ? SEEK_CUR : SEEK_END;
    const off_t reached = lseek(file->GetDescriptor(), distance, whence);
    if (reached < 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    if (place)
        *place = reached;
    return true;
}

bool GetFileSizeEx(HANDLE handle, std::int64_t& size)
{
    const std::shared_ptr<CFileRecord> file = FindFile(handle);
    struct stat status = {};
    if (!file)
        return false;
    if (fstat(file->GetDescriptor(), &status) != 0)
        return Fail();
    if (!S_ISREG(status.st_mode))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    size = status.st_size;
    return true;
}

bool SetEndOfFile(HANDLE handle)
{
    std::int64_t place = 0;
    const std::shared_ptr<CFileRecord> file = FindFile(handle);
    return file && SetFilePointerEx(handle, 0, &place, FILE_CURRENT) &&
           (ftruncate(file->GetDescriptor(), place) == 0 || Fail());
}

bool GetFileTime(HANDLE handle, FILETIME* creation, FILETIME* access, FILETIME* write)
{
    const std::shared_ptr<CFileRecord> file = FindFile(handle);
    struct statx status = {};
    if (!file)
        return false;
    if (statx(file->GetDescriptor(), "", AT_EMPTY_PATH, STATX_BASIC_STATS | STATX_BTIME, &status) !=
        0)
        return Fail();
    if (creation)
        *creation =
            FileTimeOf((status.stx_mask & STATX_BTIME) != 0 ? status.stx_btime : status.stx_ctime);
    if (access)
        *access = FileTimeOf(status.stx_atime);
    if (write)
        *write = FileTimeOf(status.stx_mtime);
    return true;
}

bool SetFileTime(HANDLE handle, const FILETIME*, const FILETIME* access, const FILETIME* write)
{
    const std::shared_ptr<CFileRecord> file = FindFile(handle);
    const timespec times[2] = {TimeSpecOf(access), TimeSpecOf(write)};
    return file && (futimens(file->GetDescriptor(), times) == 0 || Fail());
}

} // namespace utility
