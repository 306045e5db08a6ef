#include "platform/system/KnownFolders.h"

#include "platform/backend/posix/RuntimeFolder.h"
#include "platform/backend/posix/UserFolders.h"
#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr char DEFAULT_DATA_FOLDER[] = "/usr/local/share";
constexpr int PREFIX_LIMIT = 3;
constexpr int NAME_TRIES = 1000;
constexpr mode_t PRIVATE_MODE = 0600;

/// A folder of the desktop's list, else the plain name below the home.
std::string DesktopFolder(const char* name, const char* belowHome)
{
    const std::string home = GetHomeFolder();
    std::ifstream file(GetUserFolder("XDG_CONFIG_HOME", "/.config") + "/user-dirs.dirs");
    const std::string list{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::string folder = FindUserFolder(list, name, home);
    return folder.empty() ? home + belowHome : folder;
}

/// The first of the machine's data folders.
std::string SharedDataFolder()
{
    const char* value = std::getenv("XDG_DATA_DIRS");
    const std::string list = value != nullptr ? value : "";
    const std::string first = list.substr(0, list.find(':'));
    return first.starts_with('/') ? first : DEFAULT_DATA_FOLDER;
}

std::string FolderOnDisk(int id)
{
    switch (id)
    {
    case CSIDL_DESKTOP:
    case CSIDL_DESKTOPDIRECTORY:
        return DesktopFolder("XDG_DESKTOP_DIR", "/Desktop");
    case CSIDL_PERSONAL:
    case CSIDL_MYDOCUMENTS:
        return DesktopFolder("XDG_DOCUMENTS_DIR", "/Documents");
    case CSIDL_APPDATA:
        return GetUserFolder("XDG_CONFIG_HOME", "/.config");
    case CSIDL_LOCAL_APPDATA:
        return GetUserFolder("XDG_DATA_HOME", "/.local/share");
    case CSIDL_COMMON_APPDATA:
        return SharedDataFolder();
    case CSIDL_PROFILE:
        return GetHomeFolder();
    case CSIDL_COMMON_DOCUMENTS:
        return DesktopFolder("XDG_PUBLICSHARE_DIR", "/Public");
    default:
        return std::string();
    }
}

} // namespace

bool SHGetSpecialFolderPathW(CString& folder, int id, bool create)
{
    std::string found = FolderOnDisk(id);
    if (found.empty())
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    if (create && !MakeFolders(found))
        return false;
    while (found.size() > 1 && found.ends_with('/'))
        found.pop_back();
    folder = ClassicFromDisk(found);
    return true;
}

CString GetTempPathW()
{
    const std::string folder = GetPrivateTempFolder();
    return folder.empty() ? CString() : ClassicFromDisk(folder + "/");
}

bool GetTempFileNameW(const char16_t* folder, const char16_t* prefix, CString& file)
{
    CString start(folder);
    if (!start.IsEmpty() && start.GetAt(start.GetLength() - 1) != u'\\' &&
        start.GetAt(start.GetLength() - 1) != u'/')
        start += u'\\';
    start += CString(prefix).Left(PREFIX_LIMIT);
    for (int i = 0; i < NAME_TRIES; ++i)
    {
        unsigned number = 0;
        if (getentropy(&number, sizeof number) != 0)
            break;
        CString candidate;
        candidate.Format(u"%s%X.tmp", start, number);
        const std::string name = DiskPathForNewName(candidate.View());
        const int descriptor =
            open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, PRIVATE_MODE);
        if (descriptor >= 0)
        {
            close(descriptor);
            file = candidate;
            return true;
        }
        if (errno != EEXIST)
            return FailOnPath(errno, name);
    }
    SetLastError(ERROR_FILE_EXISTS);
    return false;
}

} // namespace utility
