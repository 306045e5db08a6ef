#include "platform/backend/posix/ErrorMap.h"
#include "platform/backend/posix/window/LiveAddress.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/window/LiveFolder.h"

#include <cerrno>
#include <sys/socket.h>
#include <sys/time.h>

namespace utility
{

namespace
{

constexpr timeval LONGEST_WAIT = {0, 250'000}; // microseconds, for a program that is busy or halted

bool FailToSend(int error)
{
    if (error == EAGAIN || error == EWOULDBLOCK)
        SetLastError(ERROR_SEM_TIMEOUT);
    else if (error == ENOENT || error == ECONNREFUSED || error == ECONNRESET)
        SetLastError(ERROR_INVALID_HANDLE);
    else
        SetLastError(ErrorFromErrno(error));
    return false;
}

} // namespace

bool SendWindowOrder(const CProcessStamp& process, std::string_view text)
{
    const CLiveAddress address(process);
    if (!address)
        return false;
    const CDescriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!socket)
        return FailToSend(errno);
    // A plain refusal would come after ten orders on many systems, so the sender waits a little.
    setsockopt(socket.Get(), SOL_SOCKET, SO_SNDTIMEO, &LONGEST_WAIT, sizeof LONGEST_WAIT);
    ssize_t sent = -1;
    do
        sent = sendto(socket.Get(), text.data(), text.size(), MSG_NOSIGNAL, address.Get(),
                      address.GetLength());
    while (sent < 0 && errno == EINTR);
    return sent >= 0 || FailToSend(errno);
}

} // namespace utility
