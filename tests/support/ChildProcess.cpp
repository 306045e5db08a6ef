#include "support/ChildProcess.h"

#include <csignal>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace utility
{

CChildProcess::CChildProcess(const std::function<int()>& work) : m_Process(fork())
{
    if (m_Process < 0)
        throw std::runtime_error("cannot fork");
    if (m_Process == 0)
        _exit(work());
}

CChildProcess::~CChildProcess()
{
    Kill();
}

int CChildProcess::Wait()
{
    int status = 0;
    if (m_Process <= 0 || waitpid(m_Process, &status, 0) != m_Process)
        return -1;
    m_Process = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void CChildProcess::Kill()
{
    if (m_Process <= 0)
        return;
    kill(m_Process, SIGKILL);
    Wait();
}

void DropRights()
{
    constexpr uid_t NOBODY = 65534;
    if (geteuid() == 0 && (setgid(NOBODY) != 0 || setuid(NOBODY) != 0))
        _exit(99);
}

} // namespace utility
