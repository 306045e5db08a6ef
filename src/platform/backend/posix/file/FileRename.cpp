#include "platform/backend/posix/file/Descriptor.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/FileMode.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/file/FileException.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr mode_t PRIVATE_MODE = 0600; // until the original's is given
constexpr std::size_t COPY_PIECE = std::size_t(1) << 30U;

/// The same name in the same folder, so no second name of one file.
bool AreSameEntry(const std::string& left, const std::string& right)
{
    struct stat first = {};
    struct stat second = {};
    const auto nameOf = [](const std::string& path)
    {
        return path.substr(path.rfind('/') + 1);
    };
    return nameOf(left) == nameOf(right) && lstat(left.c_str(), &first) == 0 &&
           lstat(right.c_str(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

bool Exists(const std::string& name)
{
    struct stat status = {};
    return lstat(name.c_str(), &status) == 0;
}

/// Renames unless the new name is taken; false with errno.
bool RenameToFree(const std::string& from, const std::string& to)
{
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // Disks that cannot do both in one step get the look first.
    if (Exists(to))
    {
        errno = EEXIST;
        return false;
    }
    return rename(from.c_str(), to.c_str()) == 0;
}

bool CopyBytes(int from, int to)
{
    ssize_t copied = 0;
    do
        copied = sendfile(to, from, nullptr, COPY_PIECE);
    while (copied > 0 || (copied < 0 && errno == EINTR));
    return copied == 0;
}

/// To another disk: the copy is on it for good before the original goes. False with errno, and no
/// copy left.
bool MoveAcross(const std::string& from, const std::string& to)
{
    const CDescriptor source(open(from.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status = {};
    if (!source || fstat(source.Get(), &status) != 0)
        return false;
    if (!S_ISREG(status.st_mode))
    {
        errno = EXDEV;
        return false;
    }
    CDescriptor target(open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, PRIVATE_MODE));
    if (!target)
        return false;
    const timespec times[2] = {status.st_atim, status.st_mtim};
    const bool copied = CopyBytes(source.Get(), target.Get()) &&
                        fchmod(target.Get(), status.st_mode & MODE_BITS) == 0 &&
                        futimens(target.Get(), times) == 0 && fsync(target.Get()) == 0 &&
                        target.Close() == 0 && unlink(from.c_str()) == 0;
    if (copied)
        return true;
    const int error = errno;
    unlink(to.c_str());
    errno = error;
    return false;
}

} // namespace

void CFile::Rename(const char16_t* oldPath, const char16_t* newPath)
{
    const CString newText(newPath);
    const std::string from = DiskPath(CString(oldPath).View());
    const std::string to = DiskPathForNewName(newText.View());
    const std::string taken = DiskPath(newText.View());
    if (from.empty() || !Exists(from))
        CFileException::ThrowOsError(static_cast<LONG>(PathErrorCode(ENOENT, from)), oldPath);
    if (to.empty())
        CFileException::ThrowOsError(ERROR_PATH_NOT_FOUND, newPath);

    const bool isOwnName = AreSameEntry(from, taken); // another spelling of itself is free
    if (!isOwnName && Exists(taken))
        CFileException::ThrowOsError(ERROR_ALREADY_EXISTS, newPath);
    if (isOwnName ? rename(from.c_str(), to.c_str()) == 0 : RenameToFree(from, to))
        return;
    if (errno != EXDEV || !MoveAcross(from, to))
        CFileException::ThrowOsError(static_cast<LONG>(PathErrorCode(errno, to)), oldPath);
}

void CFile::Remove(const char16_t* path)
{
    if (!DeleteFileW(path))
        CFileException::ThrowOsError(static_cast<LONG>(GetLastError()), path);
}

} // namespace utility
