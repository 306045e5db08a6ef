#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace utility
{

/// What a process on a terminal left.
struct CTerminalRun
{
    int m_ExitCode = -1;       // -1: a signal ended it
    std::string m_Screen;      // with plain line feeds; what is typed is not shown
    bool m_IsRestored = false; // the terminal's settings are as they were before
};

/// What ends a terminal's input (Ctrl-D), and what interrupts the process there (Ctrl-C).
constexpr std::string_view END_OF_INPUT = "\x04";
constexpr std::string_view INTERRUPT = "\x03";

/// A process whose standard streams are a terminal of its own; killed, if it still runs, at the
/// object's end.
class CTerminalProcess
{
public:
    /// A forked copy of the test program; `work` gives the exit code.
    explicit CTerminalProcess(const std::function<int()>& work);
    /// A program with its words.
    explicit CTerminalProcess(const std::vector<std::string>& words);
    ~CTerminalProcess();
    CTerminalProcess(const CTerminalProcess&) = delete;
    CTerminalProcess& operator=(const CTerminalProcess&) = delete;

    void Type(std::string_view keys) const;
    /// Gives the terminal another size, which the process is told.
    void Resize(int lines, int columns) const;
    /// Reads the screen until this stands there; false if the process ends before.
    bool AwaitText(std::string_view text);
    /// Reads what is left and waits for the end.
    CTerminalRun Finish();

private:
    bool ReadMore();
    bool IsRestored() const;

    pid_t m_Process = 0;
    int m_Terminal = -1;
    std::string m_Screen;
};

/// One run from the first to the last, all keys typed at once.
CTerminalRun RunOnTerminal(const std::function<int()>& work, std::string_view keys);
CTerminalRun RunOnTerminal(const std::vector<std::string>& words, std::string_view keys);

} // namespace utility
