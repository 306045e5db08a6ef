#include "platform/backend/posix/ErrorMap.h"
#include "platform/backend/posix/window/LiveAddress.h"
#include "platform/base/LastError.h"
#include "platform/system/process/WinThread.h"
#include "platform/system/window/LiveFolder.h"
#include "platform/system/window/WindowOrder.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <system_error>
#include <thread>

namespace utility
{

namespace
{

constexpr int TICKET_LIMIT = 1024; // orders that may wait for the main thread

/// How many orders are out, and how the receiving thread is woken. Outlives the receiver as long as
/// tickets do.
struct CTicketBox
{
    std::atomic<int> m_OutCount = 0;
    CDescriptor m_WakeUp{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};

    void Wake() const
    {
        const std::uint64_t one = 1;
        static_cast<void>(!write(m_WakeUp.Get(), &one, sizeof one)); // a full count wakes as well
    }
    void EndWake() const
    {
        std::uint64_t count = 0;
        static_cast<void>(!read(m_WakeUp.Get(), &count, sizeof count));
    }
};

std::shared_ptr<void> MakeTicket(const std::shared_ptr<CTicketBox>& box)
{
    ++box->m_OutCount;
    return std::shared_ptr<void>(nullptr,
                                 [box](void*)
                                 {
                                     if (box->m_OutCount-- == TICKET_LIMIT)
                                         box->Wake();
                                 });
}

/// Signals are for the host's threads; those of faults stay with whoever causes them.
class CSignalsAway
{
public:
    CSignalsAway()
    {
        sigset_t signals;
        sigfillset(&signals);
        for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGABRT})
            sigdelset(&signals, fault);
        pthread_sigmask(SIG_SETMASK, &signals, &m_Before);
    }
    ~CSignalsAway() { pthread_sigmask(SIG_SETMASK, &m_Before, nullptr); }
    CSignalsAway(const CSignalsAway&) = delete;
    CSignalsAway& operator=(const CSignalsAway&) = delete;

private:
    sigset_t m_Before;
};

/// Whether the kernel says that the sender is of our user.
bool IsFromOwnUser(const msghdr& message)
{
    for (cmsghdr* part = CMSG_FIRSTHDR(&message); part;
         part = CMSG_NXTHDR(const_cast<msghdr*>(&message), part))
    {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_CREDENTIALS)
            continue;
        ucred sender{};
        std::memcpy(&sender, CMSG_DATA(part), sizeof sender);
        return sender.uid == geteuid();
    }
    return false;
}

} // namespace

struct CLiveReceiver::CBackend
{
    std::shared_ptr<CTicketBox> m_Box = std::make_shared<CTicketBox>();
    CDescriptor m_Socket;
    Handler m_Handler;
    std::atomic<bool> m_IsEnding = false;
    std::thread m_Thread;

    bool Open();
    void Run();
    void ReceiveOne();
};

bool CLiveReceiver::CBackend::Open()
{
    const CLiveAddress address(GetOwnStamp());
    if (!address)
        return false;
    m_Socket = CDescriptor(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const int on = 1;
    unlink(address.GetPath()); // an earlier one of this process
    if (m_Box->m_WakeUp && m_Socket &&
        setsockopt(m_Socket.Get(), SOL_SOCKET, SO_PASSCRED, &on, sizeof on) == 0 &&
        bind(m_Socket.Get(), address.Get(), address.GetLength()) == 0)
        return true;
    SetLastErrorFromErrno();
    return false;
}

void CLiveReceiver::CBackend::Run()
{
    NameThread(GetCurrentThreadId(), "LiveWindows");
    while (!m_IsEnding)
    {
        const bool mayReceive = m_Box->m_OutCount < TICKET_LIMIT;
        std::array<pollfd, 2> wanted = {
            {{m_Box->m_WakeUp.Get(), POLLIN, 0}, {mayReceive ? m_Socket.Get() : -1, POLLIN, 0}}};
        if (poll(wanted.data(), wanted.size(), -1) < 0)
            continue;
        if (wanted[0].revents != 0)
            m_Box->EndWake();
        if (wanted[1].revents != 0)
            ReceiveOne();
    }
}

void CLiveReceiver::CBackend::ReceiveOne()
{
    std::array<char, ORDER_LIMIT> bytes;
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(ucred))> credentials;
    iovec piece = {bytes.data(), bytes.size()};
    msghdr message{};
    message.msg_iov = &piece;
    message.msg_iovlen = 1;
    message.msg_control = credentials.data();
    message.msg_controllen = credentials.size();
    const ssize_t length = recvmsg(m_Socket.Get(), &message, MSG_CMSG_CLOEXEC);
    if (length > 0 && (message.msg_flags & MSG_TRUNC) == 0 && IsFromOwnUser(message))
        m_Handler({bytes.data(), static_cast<std::size_t>(length)}, MakeTicket(m_Box));
}

std::unique_ptr<CLiveReceiver> CLiveReceiver::Start(Handler handler)
{
    auto backend = std::make_unique<CBackend>();
    backend->m_Handler = std::move(handler);
    if (!backend->Open())
        return nullptr;
    try
    {
        const CSignalsAway scope;
        backend->m_Thread = std::thread(&CBackend::Run, backend.get());
    }
    catch (const std::system_error& error)
    {
        SetLastError(ErrorFromErrno(error.code().value()));
        return nullptr;
    }
    return std::unique_ptr<CLiveReceiver>(new CLiveReceiver(std::move(backend)));
}

CLiveReceiver::CLiveReceiver(std::unique_ptr<CBackend> backend) : m_Backend(std::move(backend)) {}

CLiveReceiver::~CLiveReceiver()
{
    const CLiveAddress address(GetOwnStamp());
    if (address)
        unlink(address.GetPath());
    m_Backend->m_IsEnding = true;
    m_Backend->m_Box->Wake();
    m_Backend->m_Thread.join();
}

} // namespace utility
