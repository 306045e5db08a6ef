#include "platform/backend/posix/window/LiveAddress.h"

#include "platform/backend/posix/file/PathError.h"
#include "platform/backend/posix/window/LiveFiles.h"

#include <cerrno>
#include <fcntl.h>

namespace utility
{

CLiveAddress::CLiveAddress(const CProcessStamp& process)
{
    const std::string folder = GetLiveFolder();
    if (folder.empty())
        return;
    m_Folder = CDescriptor(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!m_Folder)
    {
        FailOnPath(errno, folder);
        return;
    }
    const std::string path = "/proc/self/fd/" + std::to_string(m_Folder.Get()) + "/" +
                             LiveFileName(process, SOCKET_EXTENSION);
    m_Address.sun_family = AF_UNIX;
    path.copy(m_Address.sun_path, sizeof m_Address.sun_path - 1); // at most 70 of 107 bytes
}

} // namespace utility
