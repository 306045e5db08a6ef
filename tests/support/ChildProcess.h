#pragma once

#include <functional>
#include <sys/types.h>

namespace utility
{

/// A forked copy of the test program that does one thing and ends; killed, if it still runs, at the
/// object's end.
class CChildProcess
{
public:
    /// `work` gives the exit code. What it prints and asserts is lost, so it answers by that alone.
    explicit CChildProcess(const std::function<int()>& work);
    ~CChildProcess();
    CChildProcess(const CChildProcess&) = delete;
    CChildProcess& operator=(const CChildProcess&) = delete;

    /// Waits for the end: the exit code, or -1 if a signal ended it.
    int Wait();
    /// Ends it at once, wherever it is.
    void Kill();

private:
    pid_t m_Process;
};

/// Runs the present test once more in a process in which nothing has run before, and expects it to
/// pass there.
///
/// True in that process, so a test begins with `if (!IsInFreshProcess()) return;`.
bool IsInFreshProcess();

/// In a child: gives up the rights that would let a test run by the system's administrator write
/// everywhere.
void DropRights();

} // namespace utility
