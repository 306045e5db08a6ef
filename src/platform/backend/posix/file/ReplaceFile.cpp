#include "platform/backend/posix/file/Descriptor.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/FileMode.h"
#include "platform/backend/posix/file/FileShare.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/FileCalls.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr mode_t PRIVATE_MODE = 0600; // until the target's mode is given
constexpr int LINK_LIMIT = 40;
constexpr int NAME_TRIES = 100;

std::string FolderOf(const std::string& name)
{
    return name.substr(0, name.rfind('/') + 1); // "" is the current folder
}

/// Where the links of a name lead, also to what is not there; false with errno if they go round in
/// a circle.
bool FollowLinks(std::string& name)
{
    for (int i = 0; i < LINK_LIMIT; ++i)
    {
        char target[PATH_MAX];
        const ssize_t length = readlink(name.c_str(), target, sizeof target);
        if (length < 0)
            return true;
        const std::string_view next(target, static_cast<std::size_t>(length));
        name = next.starts_with('/') ? std::string(next) : FolderOf(name) + std::string(next);
    }
    errno = ELOOP;
    return false;
}

/// A new file of a free name in a folder; none, with errno, if there can be none.
CDescriptor MakeBeside(const std::string& folder, mode_t mode, std::string& name)
{
    for (int i = 0; i < NAME_TRIES; ++i)
    {
        unsigned number = 0;
        if (getentropy(&number, sizeof number) != 0)
            break;
        char digits[16];
        snprintf(digits, sizeof digits, "~%08x.tmp", number);
        name = folder + digits;
        CDescriptor descriptor(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (descriptor || errno != EEXIST)
            return descriptor;
    }
    return CDescriptor();
}

/// Somebody who writes the file that is about to be replaced would lose his work.
bool IsWrittenByOthers(const std::string& name)
{
    const CDescriptor descriptor(open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    CFileShare share;
    share.DeniesWriters = true;
    return descriptor && TakeFileShare(descriptor.Get(), share) == ERROR_SHARING_VIOLATION;
}

bool SyncFile(const std::string& name)
{
    const CDescriptor descriptor(open(name.c_str(), O_RDONLY | O_CLOEXEC));
    return descriptor && fsync(descriptor.Get()) == 0;
}

/// The new file is in its place by now and whole; a disk that cannot sync folders changes nothing
/// in that.
void SyncFolder(const std::string& folder)
{
    const CDescriptor descriptor(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor)
        static_cast<void>(fsync(descriptor.Get()));
}

} // namespace

bool MakeReplacement(const char16_t* target, CString& written, CString& replaced)
{
    std::string name = DiskPath(CString(target).View());
    if (name.empty() || !FollowLinks(name))
        return FailOnPath(name.empty() ? ENOENT : errno, name);

    struct stat old = {};
    const bool isThere = stat(name.c_str(), &old) == 0;
    if (!isThere && errno != ENOENT)
        return FailOnPath(errno, name);
    if (isThere && (!S_ISREG(old.st_mode) || IsReadOnlyOnDisk(name, old.st_mode)))
        return FailOnPath(EACCES, name);

    std::string made;
    const CDescriptor descriptor =
        MakeBeside(FolderOf(name), isThere ? PRIVATE_MODE : NEW_FILE_MODE, made);
    if (!descriptor)
        return FailOnPath(errno, made);
    if (isThere && !GiveModeAndOwner(descriptor.Get(), old))
    {
        const int error = errno;
        unlink(made.c_str());
        return FailOnPath(error, made);
    }
    written = ClassicFromDisk(made);
    replaced = ClassicFromDisk(name);
    return true;
}

bool ReplaceWholeFile(const char16_t* written, const char16_t* replaced)
{
    const std::string from = DiskPath(CString(written).View());
    const std::string to = DiskPath(CString(replaced).View());
    if (IsWrittenByOthers(to))
    {
        SetLastError(ERROR_SHARING_VIOLATION);
        return false;
    }
    if (!SyncFile(from))
        return FailOnPath(errno, from);
    if (rename(from.c_str(), to.c_str()) != 0)
        return FailOnPath(errno, to);
    SyncFolder(FolderOf(to));
    return true;
}

} // namespace utility
