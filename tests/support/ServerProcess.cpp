#include "support/ServerProcess.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <grp.h>
#include <iterator>
#include <poll.h>
#include <pwd.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace utility
{

namespace
{

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// In the child: becomes the user, and ends at once when its parent does.
void BecomeServer(const passwd* user, const std::filesystem::path& log)
{
    const int file = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    dup2(file, STDOUT_FILENO);
    dup2(file, STDERR_FILENO);
    const int nothing = open("/dev/null", O_RDONLY);
    dup2(nothing, STDIN_FILENO);
    if (user &&
        (setgroups(0, nullptr) != 0 || setgid(user->pw_gid) != 0 || setuid(user->pw_uid) != 0))
        _exit(126);
    prctl(PR_SET_PDEATHSIG, SIGKILL); // behind setuid, which clears it
}

std::vector<int> FindChildren(int process)
{
    const std::string number = std::to_string(process);
    std::ifstream list("/proc/" + number + "/task/" + number + "/children");
    return {std::istream_iterator<int>(list), {}};
}

/// Another's child: no waitpid for it, and what it shares with others is held until it is gone.
void KillAndWait(int process)
{
    const int handle = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    if (handle < 0)
        return; // gone by itself
    kill(process, SIGKILL);
    pollfd gone = {handle, POLLIN, 0};
    poll(&gone, 1, -1);
    close(handle);
}

int Spawn(const CArguments& arguments, const char* user, const std::filesystem::path& log)
{
    std::vector<char*> pointers;
    for (const std::string& argument : arguments)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    const passwd* const entry = user && geteuid() == 0 ? getpwnam(user) : nullptr;
    const int process = fork();
    if (process != 0)
        return process;
    BecomeServer(entry, log);
    execvp(pointers[0], pointers.data());
    _exit(127);
}

} // namespace

void RunProgram(const CArguments& arguments, const char* user, const std::filesystem::path& log)
{
    int status = 0;
    waitpid(Spawn(arguments, user, log), &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(arguments[0] + " failed:\n" + ReadFile(log));
}

CServerProcess::CServerProcess(const CArguments& arguments, const char* user,
                               const std::filesystem::path& log)
    : m_Process(Spawn(arguments, user, log)),
      m_Log(log)
{
}

CServerProcess::~CServerProcess()
{
    if (m_Process <= 0)
        return;
    kill(m_Process, SIGQUIT); // nothing of it is kept, so there is nothing to write out
    waitpid(m_Process, nullptr, 0);
}

bool CServerProcess::IsRunning()
{
    if (m_Process <= 0 || waitpid(m_Process, nullptr, WNOHANG) == 0)
        return m_Process > 0;
    m_Process = -1;
    return false;
}

void CServerProcess::Kill()
{
    if (!IsRunning())
        return;
    kill(m_Process, SIGSTOP); // it starts no more, and does not notice that a child went
    for (const int child : FindChildren(m_Process))
        KillAndWait(child);
    kill(m_Process, SIGKILL);
    waitpid(m_Process, nullptr, 0);
    m_Process = -1;
}

std::string CServerProcess::ReadLog() const
{
    return ReadFile(m_Log);
}

CServerWatch::CServerWatch(const std::filesystem::path& folder)
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe for the watch over the database servers");
    m_Pipe = ends[1];
    m_Process = fork();
    if (m_Process == 0)
    {
        setsid(); // a Ctrl-C at the terminal ends the tests, and then this goes on
        dup2(ends[0], STDIN_FILENO);
        execl("/bin/sh", "sh", "-c", "read nothing; sleep 0.1; rm -rf -- \"$0\"", folder.c_str(),
              static_cast<char*>(nullptr));
        _exit(127);
    }
    close(ends[0]);
}

CServerWatch::~CServerWatch()
{
    close(m_Pipe);
    waitpid(m_Process, nullptr, 0);
}

} // namespace utility
