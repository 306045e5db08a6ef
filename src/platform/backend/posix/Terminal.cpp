#include "platform/system/Terminal.h"

#include "platform/base/Encoding.h"

#include <cerrno>
#include <string>
#include <termios.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr char INTERRUPT_KEY = 3;
constexpr char END_KEY = 4;
constexpr char BACKSPACE_KEY = 8;
constexpr char KILL_LINE_KEY = 21;
constexpr char DELETE_KEY = 127;

/// Lets keys come one by one and unseen until the end of its scope.
class CQuietTerminal
{
public:
    CQuietTerminal()
    {
        if (tcgetattr(STDIN_FILENO, &m_Before) != 0)
            return;
        termios quiet = m_Before;
        quiet.c_lflag &= ~tcflag_t(ECHO | ICANON | ISIG); // keys that end the process come here too
        quiet.c_cc[VMIN] = 1;
        quiet.c_cc[VTIME] = 0;
        m_IsQuiet = tcsetattr(STDIN_FILENO, TCSADRAIN, &quiet) == 0;
    }
    ~CQuietTerminal()
    {
        if (m_IsQuiet)
            tcsetattr(STDIN_FILENO, TCSADRAIN, &m_Before);
    }
    CQuietTerminal(const CQuietTerminal&) = delete;
    CQuietTerminal& operator=(const CQuietTerminal&) = delete;

    bool IsQuiet() const { return m_IsQuiet; }

private:
    termios m_Before{};
    bool m_IsQuiet = false;
};

void Show(const std::string& bytes)
{
    // Nobody could be told that telling failed.
    static_cast<void>(!write(STDERR_FILENO, bytes.data(), bytes.size()));
}

bool ReadKey(char& key)
{
    ssize_t count = 0;
    do
        count = read(STDIN_FILENO, &key, 1);
    while (count < 0 && errno == EINTR);
    return count == 1;
}

/// Takes the last character off, which may be several bytes.
void TakeBack(std::string& line)
{
    while (!line.empty() && (line.back() & 0xC0) == 0x80)
        line.pop_back();
    if (!line.empty())
        line.pop_back();
}

/// False if the line is given up.
bool ReadKeys(std::string& line)
{
    for (char key = 0; ReadKey(key);)
    {
        switch (key)
        {
        case INTERRUPT_KEY:
            return false;
        case END_KEY:
        case '\r':
        case '\n':
            return true;
        case BACKSPACE_KEY:
        case DELETE_KEY:
            TakeBack(line);
            break;
        case KILL_LINE_KEY:
            line.clear();
            break;
        default:
            line += key;
            break;
        }
    }
    return false;
}

} // namespace

bool IsTerminal(EStandardStream stream)
{
    switch (stream)
    {
    case EStandardStream::Input:
        return isatty(STDIN_FILENO) == 1;
    case EStandardStream::Output:
        return isatty(STDOUT_FILENO) == 1;
    case EStandardStream::Error:
        return isatty(STDERR_FILENO) == 1;
    }
    return false;
}

bool ReadSecret(const CString& prompt, CString& text)
{
    const CQuietTerminal quiet;
    if (!quiet.IsQuiet())
        return false;
    Show(ToBytes(CP_ACP, prompt.View()));
    std::string line;
    const bool isRead = ReadKeys(line);
    Show("\n");
    if (isRead)
        text = FromBytes(CP_ACP, line);
    return isRead;
}

} // namespace utility
