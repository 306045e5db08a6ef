#include "platform/backend/posix/process/ChildRecord.h"

#include "platform/base/ErrorCodes.h"
#include "platform/system/process/Process.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr DWORD SIGNAL_BASE = 128; // as shells tell a program that a signal ended
constexpr DWORD ASKING_STEP = 10;  // ms

/// -1 where the program has been collected already, as where a host ignores its children's ends.
int OpenDescriptor(pid_t process)
{
    return static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
}

DWORD ExitCode(int status)
{
    return static_cast<DWORD>(WIFSIGNALED(status) ? SIGNAL_BASE + WTERMSIG(status)
                                                  : WEXITSTATUS(status));
}

void WaitForEnd(pid_t process)
{
    while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR)
    {
    }
}

} // namespace

CChildRecord::CChildRecord(pid_t process)
    : m_Process(process),
      m_Descriptor(OpenDescriptor(process))
{
}

CChildRecord::~CChildRecord()
{
    if (m_Descriptor >= 0)
        ::close(m_Descriptor);
    if (Collect())
        return;
    try
    {
        std::thread(WaitForEnd, m_Process).detach();
    }
    catch (const std::system_error&)
    {
        // Without threads to be had, the dead process goes when we do.
    }
}

DWORD CChildRecord::Wait(DWORD milliseconds)
{
    return m_Descriptor >= 0 ? WaitForDescriptor(m_Descriptor, POLLIN, milliseconds)
                             : WaitByAsking(milliseconds);
}

DWORD CChildRecord::WaitByAsking(DWORD milliseconds)
{
    for (DWORD waited = 0; !Collect(); waited += ASKING_STEP)
    {
        if (milliseconds != INFINITE && waited >= milliseconds)
            return WAIT_TIMEOUT;
        std::this_thread::sleep_for(std::chrono::milliseconds(ASKING_STEP));
    }
    return WAIT_OBJECT_0;
}

DWORD CChildRecord::GetExitCode()
{
    return Collect() ? *m_ExitCode : STILL_ACTIVE;
}

bool CChildRecord::Collect()
{
    const std::lock_guard lock(m_Lock);
    if (m_ExitCode)
        return true;
    int status = 0;
    const pid_t ended = ::waitpid(m_Process, &status, WNOHANG);
    if (ended == m_Process)
        m_ExitCode = ExitCode(status);
    else if (ended < 0 && errno == ECHILD)
        m_ExitCode = 0; // collected by the host's own rules: its code is lost
    return m_ExitCode.has_value();
}

} // namespace utility
