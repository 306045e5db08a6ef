#include "platform/system/file/ConfinedFolder.h"

#include "platform/backend/posix/ErrorMap.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/FileHandle.h"
#include "platform/backend/posix/file/FileMode.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include <cerrno>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr int FOLDER_FLAGS = O_PATH | O_DIRECTORY | O_CLOEXEC;
constexpr int NAME_TRIES = 100;

bool Fail()
{
    SetLastErrorFromErrno();
    return false;
}

bool FailWith(DWORD code)
{
    SetLastError(code);
    return false;
}

bool IsSeparator(char16_t unit)
{
    return unit == u'/' || unit == u'\\';
}

/// A folder on the way down, and the name in it that is wanted; no name if the path is the folder.
struct CPlace
{
    CDescriptor m_Folder;
    std::string m_Name;
};

/// Goes down one folder; with errno if it cannot.
CDescriptor Enter(int folder, const std::string& name, bool makes)
{
    constexpr int FLAGS = FOLDER_FLAGS | O_NOFOLLOW;
    CDescriptor below(openat(folder, name.c_str(), FLAGS));
    if (below || errno != ENOENT || !makes)
        return below;
    if (mkdirat(folder, name.c_str(), NEW_FOLDER_MODE) != 0 && errno != EEXIST)
        return CDescriptor();
    return CDescriptor(openat(folder, name.c_str(), FLAGS));
}

/// Walks along the folders of a path, which it makes if wanted.
bool Walk(int base, std::u16string_view path, bool makes, CPlace& place)
{
    place.m_Folder = CDescriptor(fcntl(base, F_DUPFD_CLOEXEC, 0));
    place.m_Name.clear();
    if (!place.m_Folder)
        return Fail();
    while (!path.empty())
    {
        std::size_t length = 0;
        while (length < path.size() && !IsSeparator(path[length]))
            ++length;
        const std::u16string_view name = path.substr(0, length);
        path.remove_prefix(std::min(length + 1, path.size()));
        if (name.empty() || name == u".")
            continue;
        if (name == u".." || name.find(u'\0') != name.npos)
            return FailWith(ERROR_INVALID_NAME);
        if (!place.m_Name.empty())
        {
            place.m_Folder = Enter(place.m_Folder.Get(), place.m_Name, makes);
            if (!place.m_Folder)
                return Fail();
        }
        place.m_Name = NameToDisk(name);
    }
    return true;
}

bool IsReadOnlyMode(mode_t mode)
{
    return S_ISREG(mode) && (mode & WRITE_BITS) == 0;
}

/// Gives a file a name that nothing has; false with errno.
bool RenameToFree(int folder, const char* from, const char* to)
{
    if (renameat2(folder, from, folder, to, RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS) // disks that do not know the flag
        return false;
    return linkat(folder, from, folder, to, 0) == 0 && unlinkat(folder, from, 0) == 0;
}

/// The same for a name that something may have; what is replaced was whole, so its heir must be
/// whole on the disk first.
bool RenameOver(int folder, int file, const char* from, const char* to)
{
    struct stat old = {};
    if (fstatat(folder, to, &old, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT && RenameToFree(folder, from, to);
    if (S_ISDIR(old.st_mode) || IsReadOnlyMode(old.st_mode))
    {
        errno = EACCES;
        return false;
    }
    return fsync(file) == 0 && renameat(folder, from, folder, to) == 0;
}

} // namespace

struct CConfinedFolder::CBackend
{
    CDescriptor Folder;
};

CConfinedFolder::CConfinedFolder() = default;

CConfinedFolder::~CConfinedFolder() = default;

bool CConfinedFolder::Open(const char16_t* folder)
{
    const std::string name = DiskPath(CString(folder).View());
    CDescriptor descriptor(open(name.c_str(), FOLDER_FLAGS));
    if (!descriptor)
        return FailOnPath(errno, name);
    m_Backend = std::make_unique<CBackend>();
    m_Backend->Folder = std::move(descriptor);
    return true;
}

EEntryKind CConfinedFolder::GetKind(std::u16string_view path) const
{
    CPlace place;
    struct stat status = {};
    if (!m_Backend || !Walk(m_Backend->Folder.Get(), path, false, place))
        return EEntryKind::None;
    if (place.m_Name.empty())
        return EEntryKind::Folder;
    if (fstatat(place.m_Folder.Get(), place.m_Name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return EEntryKind::None;
    if (S_ISREG(status.st_mode))
        return EEntryKind::File;
    return S_ISDIR(status.st_mode) ? EEntryKind::Folder : EEntryKind::Other;
}

bool CConfinedFolder::MakeFolder(std::u16string_view path) const
{
    CPlace place;
    if (!m_Backend)
        return FailWith(ERROR_INVALID_HANDLE);
    return Walk(m_Backend->Folder.Get(), path, true, place) &&
           (place.m_Name.empty() || Enter(place.m_Folder.Get(), place.m_Name, true) || Fail());
}

bool CConfinedFolder::SetFolderTimes(std::u16string_view path, const FILETIME& accessed,
                                     const FILETIME& modified) const
{
    CPlace place;
    if (GetKind(path) != EEntryKind::Folder)
        return FailWith(ERROR_PATH_NOT_FOUND);
    if (!Walk(m_Backend->Folder.Get(), path, false, place))
        return false;
    const timespec times[2] = {TimeSpecOf(&accessed), TimeSpecOf(&modified)};
    const char* const name = place.m_Name.empty() ? "." : place.m_Name.c_str();
    return utimensat(place.m_Folder.Get(), name, times, AT_SYMLINK_NOFOLLOW) == 0 || Fail();
}

std::uint64_t CConfinedFolder::GetFreeSpace() const
{
    struct statvfs status = {};
    if (!m_Backend || fstatvfs(m_Backend->Folder.Get(), &status) != 0)
        return 0;
    return std::uint64_t{status.f_bavail} * status.f_frsize;
}

struct CConfinedFile::CBackend
{
    CPlace Place;
    std::string WrittenName; // in the same folder
    mode_t Mode = 0;
    int Descriptor = -1; // of the handle
    HANDLE Handle = nullptr;
};

CConfinedFile::CConfinedFile() = default;

CConfinedFile::~CConfinedFile()
{
    GiveUp();
}

bool CConfinedFile::Begin(const CConfinedFolder& folder, std::u16string_view path)
{
    GiveUp();
    auto backend = std::make_unique<CBackend>();
    if (!folder.m_Backend)
        return FailWith(ERROR_INVALID_HANDLE);
    if (!Walk(folder.m_Backend->Folder.Get(), path, true, backend->Place))
        return false;
    if (backend->Place.m_Name.empty())
        return FailWith(ERROR_INVALID_NAME);

    constexpr int FLAGS = O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC;
    CDescriptor file;
    for (int i = 0; i < NAME_TRIES && !file && (i == 0 || errno == EEXIST); ++i)
    {
        unsigned number = 0;
        if (getentropy(&number, sizeof number) != 0)
            return Fail();
        char name[16];
        snprintf(name, sizeof name, "~%08x.tmp", number);
        backend->WrittenName = name;
        file = CDescriptor(openat(backend->Place.m_Folder.Get(), name, FLAGS, NEW_FILE_MODE));
    }
    struct stat status = {};
    if (!file || fstat(file.Get(), &status) != 0)
        return Fail();
    backend->Mode = status.st_mode & MODE_BITS;
    backend->Descriptor = file.Get();
    backend->Handle = AddFileHandle(std::move(file));
    m_Backend = std::move(backend);
    return true;
}

HANDLE CConfinedFile::GetHandle() const
{
    return m_Backend ? m_Backend->Handle : nullptr;
}

bool CConfinedFile::Commit(bool replaces, bool isReadOnly)
{
    if (!m_Backend)
        return FailWith(ERROR_INVALID_HANDLE);
    const CPlace& place = m_Backend->Place;
    const char* const from = m_Backend->WrittenName.c_str();
    const char* const to = place.m_Name.c_str();
    const int folder = place.m_Folder.Get();
    const bool isReady =
        !isReadOnly || fchmod(m_Backend->Descriptor, m_Backend->Mode & ~WRITE_BITS) == 0;
    if (!isReady || !(replaces ? RenameOver(folder, m_Backend->Descriptor, from, to)
                               : RenameToFree(folder, from, to)))
    {
        Fail();
        GiveUp();
        return false;
    }
    CloseHandle(m_Backend->Handle);
    m_Backend.reset();
    return true;
}

void CConfinedFile::GiveUp()
{
    if (!m_Backend)
        return;
    unlinkat(m_Backend->Place.m_Folder.Get(), m_Backend->WrittenName.c_str(), 0);
    CloseHandle(m_Backend->Handle);
    m_Backend.reset();
}

} // namespace utility
