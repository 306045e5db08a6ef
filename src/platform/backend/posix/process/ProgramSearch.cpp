#include "platform/backend/posix/process/ProgramSearch.h"

#include "platform/backend/posix/file/DiskPath.h"
#include "platform/backend/posix/file/PathError.h"
#include "platform/base/CaseFold.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/PathText.h"
#include "platform/system/process/Process.h"

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr std::u16string_view PROGRAM_EXTENSION = u".exe";
constexpr char DEFAULT_PATH[] = "/usr/local/bin:/usr/bin:/bin";

/// 0 for a file that may be run.
DWORD ProgramError(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        return PathErrorCode(errno, path);
    if (!S_ISREG(status.st_mode) || access(path.c_str(), X_OK) != 0)
        return ERROR_ACCESS_DENIED;
    return ERROR_SUCCESS;
}

CFoundProgram FindAtPath(const CString& path)
{
    const std::string diskPath = DiskPath(path.View());
    const DWORD error = diskPath.empty() ? ERROR_PATH_NOT_FOUND : ProgramError(diskPath);
    return error == ERROR_SUCCESS ? CFoundProgram{diskPath, error} : CFoundProgram{{}, error};
}

/// In the folders of PATH, in order; a file that may not be run does not end the search.
CFoundProgram FindInFolders(const CString& name)
{
    const char* variable = std::getenv("PATH");
    std::string_view folders = variable ? variable : DEFAULT_PATH;
    const std::string diskName = NameToDisk(name.View());
    DWORD error = ERROR_FILE_NOT_FOUND;
    for (bool isMore = true; isMore;)
    {
        const std::size_t end = folders.find(':');
        const std::string folder(folders.substr(0, end)); // an empty one is the current folder
        isMore = end != std::string_view::npos;
        folders.remove_prefix(isMore ? end + 1 : 0);

        const std::string path = folder.empty() ? diskName : folder + "/" + diskName;
        const DWORD found = ProgramError(path);
        if (found == ERROR_SUCCESS)
            return {folder.empty() ? "./" + diskName : path, found};
        if (found == ERROR_ACCESS_DENIED)
            error = found;
    }
    return {{}, error};
}

CFoundProgram FindOne(const CString& name)
{
    const bool isPath = name.FindOneOf(u"\\/:") >= 0;
    return isPath ? FindAtPath(name) : FindInFolders(name);
}

bool EndsInProgramExtension(const CString& name)
{
    const int length = static_cast<int>(PROGRAM_EXTENSION.size());
    return name.GetLength() > length && EqualNoCase(name.Right(length).View(), PROGRAM_EXTENSION);
}

bool IsOwnProgram(const CString& name)
{
    const CString own = GetModuleFileNameW();
    const int point = own.ReverseFind(u'.');
    return point > own.ReverseFind(u'\\') + 1 && own.Left(point) == name;
}

} // namespace

CFoundProgram FindProgram(const CString& name)
{
    if (name.IsEmpty())
        return {{}, ERROR_FILE_NOT_FOUND};
    CFoundProgram found = FindOne(name);
    if (found.m_Path.empty() && EndsInProgramExtension(name))
    {
        const int length = name.GetLength() - static_cast<int>(PROGRAM_EXTENSION.size());
        CFoundProgram shorter = FindOne(name.Left(length));
        if (!shorter.m_Path.empty())
            return shorter;
    }
    if (found.m_Path.empty() && IsOwnProgram(name))
        return FindAtPath(GetModuleFileNameW());
    return found;
}

} // namespace utility
