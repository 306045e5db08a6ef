#include "platform/system/file/FileCalls.h"

#include "platform/backend/posix/file/Descriptor.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/FileMode.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

namespace
{

std::string DiskPathOf(const char16_t* path)
{
    return DiskPath(CString(path).View());
}

} // namespace

EEntryKind GetEntryKind(const char16_t* path)
{
    const std::string name = DiskPathOf(path);
    struct stat status = {};
    if (name.empty())
        return EEntryKind::None;
    if (stat(name.c_str(), &status) != 0)
    {
        if (errno != ENOENT && errno != ENOTDIR) // that it is not there is an answer, no failure
            FailOnPath(errno, name);
        return EEntryKind::None;
    }
    if (S_ISREG(status.st_mode))
        return EEntryKind::File;
    return S_ISDIR(status.st_mode) ? EEntryKind::Folder : EEntryKind::Other;
}

bool DeleteFileW(const char16_t* path)
{
    const std::string name = DiskPathOf(path);
    struct stat status = {};
    if (lstat(name.c_str(), &status) != 0)
        return FailOnPath(errno, name);
    const bool isRefused = S_ISDIR(status.st_mode) ||
                           (!S_ISLNK(status.st_mode) && IsReadOnlyOnDisk(name, status.st_mode));
    if (isRefused)
        return FailOnPath(EACCES, name);
    return unlink(name.c_str()) == 0 || FailOnPath(errno, name);
}

bool CopyFileRights(const char16_t* from, const char16_t* to)
{
    const std::string source = DiskPathOf(from);
    const std::string target = DiskPathOf(to);
    struct stat status = {};
    if (stat(source.c_str(), &status) != 0)
        return FailOnPath(errno, source);
    const CDescriptor descriptor(open(target.c_str(), O_RDONLY | O_CLOEXEC));
    status.st_mode |= S_IWUSR;
    return (descriptor && GiveModeAndOwner(descriptor.Get(), status)) || FailOnPath(errno, target);
}

int _wremove(const char16_t* path)
{
    return DeleteFileW(path) ? 0 : -1;
}

bool RemoveDirectoryW(const char16_t* path)
{
    const std::string name = DiskPathOf(path);
    return rmdir(name.c_str()) == 0 || FailOnPath(errno, name);
}

int _wmkdir(const char16_t* path)
{
    const std::string name = DiskPathOf(path);
    return mkdir(name.c_str(), NEW_FOLDER_MODE) == 0 || FailOnPath(errno, name) ? 0 : -1;
}

bool GetShortPathNameW(const char16_t* path, CString& shortPath)
{
    if (GetEntryKind(path) == EEntryKind::None)
        return false;
    shortPath = path;
    return true;
}

CString GetCurrentDirectoryW()
{
    const std::unique_ptr<char, void (*)(void*)> folder(getcwd(nullptr, 0), std::free);
    if (!folder)
    {
        FailOnPath(errno, std::string());
        return CString();
    }
    return ClassicFromDisk(folder.get());
}

bool SetCurrentDirectoryW(const char16_t* path)
{
    const std::string name = DiskPathOf(path);
    return chdir(name.c_str()) == 0 || FailOnPath(errno, name);
}

} // namespace utility
