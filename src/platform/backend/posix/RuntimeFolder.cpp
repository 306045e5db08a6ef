#include "platform/backend/posix/RuntimeFolder.h"

#include "platform/backend/posix/file/PathError.h"

#include <cerrno>
#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace utility
{

namespace
{

constexpr mode_t PRIVATE_FOLDER_MODE = 0700;
constexpr char FOLDER_NAME[] = "/utility";

std::string AbsoluteVariable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : std::string();
}

/// True once `folder` is a real folder of this user that nobody else may enter; a link is none.
bool MakePrivateFolder(const std::string& folder)
{
    if (mkdir(folder.c_str(), PRIVATE_FOLDER_MODE) != 0 && errno != EEXIST)
        return FailOnPath(errno, folder);
    struct stat status = {};
    if (lstat(folder.c_str(), &status) != 0)
        return FailOnPath(errno, folder);
    if (!S_ISDIR(status.st_mode) || status.st_uid != geteuid())
        return FailOnPath(EACCES, folder);
    const bool isPrivate = (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    return isPrivate || chmod(folder.c_str(), PRIVATE_FOLDER_MODE) == 0 ||
           FailOnPath(errno, folder);
}

std::string FirstPrivate(const std::vector<std::string>& candidates)
{
    for (const std::string& folder : candidates)
    {
        if (MakePrivateFolder(folder))
            return folder;
    }
    return std::string();
}

/// Names below the machine's temporary folder are anybody's to take, so the user's cache stands
/// behind it.
std::vector<std::string> SharedCandidates(const char* purpose)
{
    std::string machine = AbsoluteVariable("TMPDIR");
    if (machine.empty())
        machine = "/tmp";
    const std::string cache = GetUserFolder("XDG_CACHE_HOME", "/.cache") + FOLDER_NAME;
    MakeFolders(cache);
    const std::string user = std::to_string(geteuid());
    return {machine + FOLDER_NAME + purpose + "-" + user, cache + "/" + (purpose + 1)};
}

} // namespace

std::string GetRuntimeFolder()
{
    const std::string runtime = AbsoluteVariable("XDG_RUNTIME_DIR");
    std::vector<std::string> candidates = SharedCandidates("-run");
    if (!runtime.empty())
        candidates.insert(candidates.begin(), runtime + FOLDER_NAME);
    return FirstPrivate(candidates);
}

std::string GetPrivateTempFolder()
{
    return FirstPrivate(SharedCandidates("-tmp"));
}

std::string GetHomeFolder()
{
    const std::string home = AbsoluteVariable("HOME");
    if (!home.empty())
        return home;
    passwd record = {};
    passwd* found = nullptr;
    std::vector<char> buffer(16384);
    getpwuid_r(geteuid(), &record, buffer.data(), buffer.size(), &found);
    return found != nullptr && found->pw_dir != nullptr ? found->pw_dir : "/";
}

std::string GetUserFolder(const char* variable, const char* belowHome)
{
    const std::string folder = AbsoluteVariable(variable);
    return folder.empty() ? GetHomeFolder() + belowHome : folder;
}

bool MakeFolders(const std::string& folder)
{
    for (std::size_t end = folder.find('/', 1);; end = folder.find('/', end + 1))
    {
        const std::string part = folder.substr(0, end);
        if (mkdir(part.c_str(), 0777) != 0 && errno != EEXIST && end == std::string::npos)
            return FailOnPath(errno, part);
        if (end == std::string::npos)
            break;
    }
    struct stat status = {};
    return (stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) ||
           FailOnPath(ENOTDIR, folder);
}

} // namespace utility
