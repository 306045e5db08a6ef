#include "platform/system/file/FileStatus.h"

#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/FileMode.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

namespace
{

bool IsHiddenName(const std::string& diskName)
{
    const std::size_t end = diskName.find_last_not_of('/') + 1;
    const std::size_t separator = end == 0 ? std::string::npos : diskName.rfind('/', end - 1);
    const std::string_view name = std::string_view(diskName).substr(0, end).substr(
        separator == std::string::npos ? 0 : separator + 1);
    return name.starts_with('.') && name != "." && name != "..";
}

DWORD AttributesOf(const std::string& diskName, mode_t mode)
{
    DWORD attributes = 0;
    if (IsReadOnlyOnDisk(diskName, mode))
        attributes |= CFileStatus::readOnly;
    if (IsHiddenName(diskName))
        attributes |= CFileStatus::hidden;
    if (S_ISDIR(mode))
        attributes |= CFileStatus::directory;
    return attributes;
}

bool ReadStatus(const std::string& diskName, CFileStatus& status)
{
    struct statx found = {};
    if (diskName.empty())
        return FailOnPath(ENOENT, diskName);
    if (statx(AT_FDCWD, diskName.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &found) != 0)
        return FailOnPath(errno, diskName);

    const bool hasBirth = (found.stx_mask & STATX_BTIME) != 0;
    status.m_ctime = CTime(hasBirth ? found.stx_btime.tv_sec : found.stx_ctime.tv_sec);
    status.m_mtime = CTime(found.stx_mtime.tv_sec);
    status.m_atime = CTime(found.stx_atime.tv_sec);
    status.m_size = S_ISDIR(found.stx_mode) ? 0 : static_cast<std::int64_t>(found.stx_size);
    status.m_attribute = AttributesOf(diskName, found.stx_mode);
    return true;
}

/// A time that is wanted as it is, to the second, keeps its fraction.
timespec WantedTime(const CTime& wanted, const CTime& present)
{
    const std::int64_t seconds = wanted.GetTime();
    if (seconds == 0 || seconds == present.GetTime())
        return {0, UTIME_OMIT};
    return {static_cast<time_t>(seconds), 0};
}

bool SetTimes(const std::string& diskName, const CFileStatus& wanted, const CFileStatus& present)
{
    const timespec times[2] = {WantedTime(wanted.m_atime, present.m_atime),
                               WantedTime(wanted.m_mtime, present.m_mtime)};
    if (times[0].tv_nsec == UTIME_OMIT && times[1].tv_nsec == UTIME_OMIT)
        return true;
    return utimensat(AT_FDCWD, diskName.c_str(), times, 0) == 0;
}

bool SetReadOnly(const std::string& diskName, bool readOnly)
{
    struct stat status = {};
    if (stat(diskName.c_str(), &status) != 0)
        return false;
    const mode_t mode = status.st_mode & MODE_BITS;
    return chmod(diskName.c_str(), readOnly ? mode & ~WRITE_BITS : mode | S_IWUSR) == 0;
}

} // namespace

bool CFile::GetStatus(const char16_t* path, CFileStatus& status)
{
    const CString text(path);
    CFileStatus found;
    if (!ReadStatus(DiskPath(text.View()), found))
        return false;
    found.m_szFullName = GetFullPathNameW(text);
    status = found;
    return true;
}

bool CFile::GetStatus(CFileStatus& status) const
{
    if (!IsOpen() || !GetStatus(GetFilePath(), status))
        return false;
    status.m_size = static_cast<std::int64_t>(GetLength());
    return true;
}

void CFile::SetStatus(const char16_t* path, const CFileStatus& status)
{
    const std::string diskName = DiskPath(CString(path).View());
    CFileStatus present;
    if (!ReadStatus(diskName, present))
        CFileException::ThrowOsError(static_cast<LONG>(PathErrorCode(ENOENT, diskName)), path);

    const DWORD changed = present.m_attribute ^ status.m_attribute;
    if ((changed & ~CFileStatus::readOnly) != 0)
        CFileException::ThrowOsError(ERROR_NOT_SUPPORTED, path);
    const bool setsMode = (changed & CFileStatus::readOnly) != 0;
    if (!SetTimes(diskName, status, present) ||
        (setsMode && !SetReadOnly(diskName, status.IsReadOnly())))
        CFileException::ThrowOsError(static_cast<LONG>(PathErrorCode(errno, diskName)), path);
}

} // namespace utility
