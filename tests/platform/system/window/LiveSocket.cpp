#include "platform/system/window/LiveSocket.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace utility
{

std::filesystem::path LiveWindowsFolder()
{
    return std::filesystem::path(std::getenv("XDG_RUNTIME_DIR")) / "utility" / "windows";
}

std::vector<std::string> LiveWindowsFiles()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(LiveWindowsFolder()))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

CLiveSocket::CLiveSocket(int process) : m_Socket(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0))
{
    const std::string wanted = std::to_string(process == 0 ? getpid() : process) + "-";
    for (const std::string& name : LiveWindowsFiles())
    {
        if (!name.starts_with(wanted) || !name.ends_with(".socket"))
            continue;
        sockaddr_un address = {AF_UNIX, {}};
        (LiveWindowsFolder() / name).string().copy(address.sun_path, sizeof address.sun_path - 1);
        if (connect(m_Socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
            return;
    }
    throw std::runtime_error("this process takes no orders");
}

CLiveSocket::~CLiveSocket()
{
    close(m_Socket);
}

/// 0 waits for ever.
bool CLiveSocket::SendWithin(long microseconds, std::string_view bytes) const
{
    const timeval limit = {0, microseconds};
    setsockopt(m_Socket, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    return send(m_Socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) >= 0;
}

} // namespace utility
