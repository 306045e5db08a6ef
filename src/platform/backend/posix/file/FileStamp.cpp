#include "platform/system/file/FileStamp.h"

#include "platform/backend/posix/file/DiskPath.h"
#include "platform/base/String.h"

#include <sys/stat.h>

namespace utility
{

bool GetFileStamp(const char16_t* path, CFileStamp& stamp)
{
    struct stat status = {};
    if (stat(DiskPath(CString(path).View()).c_str(), &status) != 0)
        return false;
    stamp = {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
             status.st_mtim.tv_sec, static_cast<std::uint32_t>(status.st_mtim.tv_nsec)};
    return true;
}

} // namespace utility
