#include "platform/backend/posix/file/FileMode.h"

#include <fcntl.h>
#include <unistd.h>

namespace utility
{

bool IsReadOnlyOnDisk(const std::string& diskName, mode_t mode)
{
    return (mode & WRITE_BITS) == 0 || faccessat(AT_FDCWD, diskName.c_str(), W_OK, AT_EACCESS) != 0;
}

bool GiveModeAndOwner(int descriptor, const struct stat& other)
{
    mode_t mode = other.st_mode & MODE_BITS;
    const bool isOwnerKept = fchown(descriptor, other.st_uid, other.st_gid) == 0;
    if (!isOwnerKept && fchown(descriptor, static_cast<uid_t>(-1), other.st_gid) != 0)
        mode = (mode & ~mode_t(S_IRWXG)) | ((mode & S_IRWXO) << 3U);
    return fchmod(descriptor, mode) == 0;
}

} // namespace utility
