#pragma once

#include <functional>

namespace utility
{

/// What happens to a process at one of its system calls.
enum class ESystemCallFault
{
    Fails, // the call is not made and gives EIO
    Kills  // the process ends at once, as by a power failure
};

/// How a run with a fault ended.
struct CFaultedRun
{
    bool WasMet = false; // there was such a call
    int Result = -1;     // of the work; -1 if it did not come to its end
};

/// Runs `work` in a child process whose n-th call on files (open, write, sync, rename, status, lock
/// ...) meets a fault; the count begins at 1. The child's memory is lost, what it did on disk
/// stays.
///
/// Throws where processes may not be traced, so that such a test cannot pass unrun.
CFaultedRun RunWithFault(int callNumber, ESystemCallFault fault, const std::function<int()>& work);

} // namespace utility
