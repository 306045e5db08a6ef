#include "platform/backend/posix/file/FileMode.h"

#include <fcntl.h>
#include <unistd.h>

namespace utility
{

bool IsReadOnlyOnDisk(const std::string& diskName, mode_t mode)
{
    return (mode & WRITE_BITS) == 0 || faccessat(AT_FDCWD, diskName.c_str(), W_OK, AT_EACCESS) != 0;
}

} // namespace utility
