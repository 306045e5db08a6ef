#include "platform/backend/posix/file/PathError.h"

#include "platform/backend/posix/ErrorMap.h"
#include "platform/base/LastError.h"

#include <cerrno>
#include <sys/stat.h>

namespace utility
{

namespace
{

bool IsParentThere(const std::string& diskPath)
{
    const std::size_t nameEnd = diskPath.find_last_not_of('/');
    const std::size_t separator =
        nameEnd == std::string::npos ? nameEnd : diskPath.rfind('/', nameEnd);
    if (separator == std::string::npos)
        return !diskPath.empty();
    struct stat status = {};
    return stat(diskPath.substr(0, separator + 1).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

DWORD PathErrorCode(int error, const std::string& diskPath)
{
    return ErrorFromErrno(error, error != ENOENT || IsParentThere(diskPath));
}

bool FailOnPath(int error, const std::string& diskPath)
{
    SetLastError(PathErrorCode(error, diskPath));
    return false;
}

} // namespace utility
