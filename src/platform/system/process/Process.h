#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// Starting programs without a shell, and what they leave behind.

constexpr DWORD NORMAL_PRIORITY_CLASS = 0x20;
constexpr DWORD DETACHED_PROCESS =
    0x8; // a session of its own, which outlives ours and its terminal

constexpr DWORD STARTUPINFO_SIZE = 68;
constexpr DWORD STARTF_USESHOWWINDOW = 1;

/// The exit code of a program that still runs.
constexpr DWORD STILL_ACTIVE = 259;

/// How a program is to start.
struct STARTUPINFOW
{
    DWORD cb = STARTUPINFO_SIZE;
    DWORD dwFlags = 0;
    WORD wShowWindow =
        0; // with STARTF_USESHOWWINDOW; SW_MINIMIZE is told to the program, see StartsMinimised
};

/// A program that was started. Both handles are the caller's to close; closing them ends nothing.
struct PROCESS_INFORMATION
{
    HANDLE hProcess = nullptr; // signalled once the program has ended
    HANDLE hThread = nullptr;  // the same
    DWORD dwProcessId = 0;
    DWORD dwThreadId = 0;
};

/// Starts the program that the first word of the line names, with the rest as its arguments.
///
///     "C:\My Tools\pcb" -I2    the quoted name
///     C:\My Tools\pcb -I2      the shortest run of words that names a program: `My Tools/pcb`
///     pcb -I2                  a name without a separator is sought on PATH
///     pcb.exe                  ".exe" may be missing on disk
///     the own path less its extension        the running program
///
/// A part in quotes is one argument; a backslash counts only before a quote, where two stand for
/// one and an odd one makes the quote a character; two quotes within quotes are one.
/// False with 2 or 3 where no such program is, 5 where it may not be run, 193 where it is none.
/// Never leaves a dead process behind, whether its handle is asked or not.
UTILITY_CORE_API bool CreateProcessW(const CString& commandLine, DWORD flags,
                                     const STARTUPINFOW& startup, PROCESS_INFORMATION& process);

/// STILL_ACTIVE while it runs; 128 + n if signal n ended it.
UTILITY_CORE_API bool GetExitCodeProcess(HANDLE process, DWORD& exitCode);

/// True if whoever started this program asked it to show its main window minimised.
UTILITY_CORE_API bool StartsMinimised();

UTILITY_CORE_API DWORD GetCurrentProcessId();

/// The running program's own file as a path in classic form, at most 260 units; "" if the system
/// does not tell.
UTILITY_CORE_API CString GetModuleFileNameW();

} // namespace utility
