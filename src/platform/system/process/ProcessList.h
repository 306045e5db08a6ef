#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// The programs that run now: a snapshot, walked once.
///
///     HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
///     for (bool is = Process32FirstW(list, entry); is; is = Process32NextW(list, entry)) ...
///     CloseHandle(list);

constexpr DWORD TH32CS_SNAPPROCESS = 2;

struct PROCESSENTRY32W
{
    DWORD th32ProcessID = 0;
    /// The program's path in classic form; its short name alone (15 bytes) where another user's
    /// program does not tell.
    CString szExeFile;
};

/// INVALID_HANDLE_VALUE, with the last error, for any other flags or where the system tells
/// nothing.
UTILITY_CORE_API HANDLE CreateToolhelp32Snapshot(DWORD flags, DWORD process);

/// False at the end, with ERROR_NO_MORE_FILES.
UTILITY_CORE_API bool Process32FirstW(HANDLE snapshot, PROCESSENTRY32W& entry);
UTILITY_CORE_API bool Process32NextW(HANDLE snapshot, PROCESSENTRY32W& entry);

} // namespace utility
