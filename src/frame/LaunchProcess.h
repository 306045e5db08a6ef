#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CString;

/// Starts a program without a shell; how its line is read, `CreateProcessW` tells.
///
/// With `wait` the call returns once the program has ended, and gives its exit code to `exitCode`,
/// which may be null; meanwhile windows repaint, but no input and no posted message is delivered.
/// Without, the program gets a session of its own and may outlive us. `minimised` asks it to show
/// its window minimised, `minimiseMain` minimises ours while it waits. False with 2, 3, 5 or 193 in
/// the last system code. Main thread.
UTILITY_CORE_API bool LaunchProcess(const CString& commandLine, bool wait, bool minimised,
                                    bool minimiseMain, DWORD* exitCode);

/// Starts a program minimised, without waiting, and hands over its process, which the caller
/// closes: it is signalled once the program has ended, and then tells its exit code.
UTILITY_CORE_API bool LaunchProcess(const CString& commandLine, HANDLE* processHandle);

} // namespace utility
