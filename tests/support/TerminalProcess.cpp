#include "support/TerminalProcess.h"

#include <csignal>
#include <pty.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr int NOT_STARTED = 99;

int Execute(const std::vector<std::string>& words)
{
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    return NOT_STARTED;
}

/// A terminal that shows what is written alone, so that a run always gives the same screen.
termios QuietTerminal()
{
    termios settings = {};
    settings.c_iflag = ICRNL;
    settings.c_cflag = CS8 | CREAD;
    settings.c_lflag = ICANON | ISIG;
    settings.c_cc[VEOF] = END_OF_INPUT.front();
    settings.c_cc[VINTR] = INTERRUPT.front();
    settings.c_cc[VMIN] = 1;
    return settings;
}

} // namespace

CTerminalProcess::CTerminalProcess(const std::function<int()>& work)
{
    termios settings = QuietTerminal();
    m_Process = forkpty(&m_Terminal, nullptr, &settings, nullptr);
    if (m_Process < 0)
        throw std::runtime_error("there is no terminal");
    if (m_Process == 0)
        _exit(work());
}

CTerminalProcess::CTerminalProcess(const std::vector<std::string>& words)
    : CTerminalProcess([&words] { return Execute(words); })
{
}

CTerminalProcess::~CTerminalProcess()
{
    if (m_Process > 0)
    {
        kill(m_Process, SIGKILL);
        waitpid(m_Process, nullptr, 0);
    }
    close(m_Terminal);
}

void CTerminalProcess::Type(std::string_view keys) const
{
    if (write(m_Terminal, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
        throw std::runtime_error("the terminal takes no keys");
}

void CTerminalProcess::Resize(int lines, int columns) const
{
    const winsize size = {static_cast<unsigned short>(lines), static_cast<unsigned short>(columns),
                          0, 0};
    if (ioctl(m_Terminal, TIOCSWINSZ, &size) != 0)
        throw std::runtime_error("the terminal takes no size");
}

/// False once nothing holds the other end of the terminal.
bool CTerminalProcess::ReadMore()
{
    char bytes[4096];
    const ssize_t length = read(m_Terminal, bytes, sizeof bytes);
    if (length > 0)
        m_Screen.append(bytes, static_cast<std::size_t>(length));
    return length > 0;
}

bool CTerminalProcess::AwaitText(std::string_view text)
{
    while (m_Screen.find(text) == std::string::npos)
    {
        if (!ReadMore())
            return false;
    }
    return true;
}

bool CTerminalProcess::IsRestored() const
{
    const termios before = QuietTerminal();
    termios now = {};
    return tcgetattr(m_Terminal, &now) == 0 && now.c_lflag == before.c_lflag &&
           now.c_iflag == before.c_iflag && now.c_oflag == before.c_oflag;
}

CTerminalRun CTerminalProcess::Finish()
{
    while (ReadMore())
        ;
    int status = 0;
    waitpid(m_Process, &status, 0);
    m_Process = 0;
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, m_Screen, IsRestored()};
}

CTerminalRun RunOnTerminal(const std::function<int()>& work, std::string_view keys)
{
    CTerminalProcess process(work);
    process.Type(keys);
    return process.Finish();
}

CTerminalRun RunOnTerminal(const std::vector<std::string>& words, std::string_view keys)
{
    return RunOnTerminal([&words] { return Execute(words); }, keys);
}

} // namespace utility
