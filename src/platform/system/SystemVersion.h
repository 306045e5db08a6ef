#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

constexpr DWORD VER_PLATFORM_WIN32_WINDOWS = 1;
constexpr DWORD VER_PLATFORM_WIN32_NT = 2;
constexpr DWORD VER_PLATFORM_UNIX = 4;

struct OSVERSIONINFOW
{
    DWORD dwOSVersionInfoSize; // must be 276, the size of the record in its first home
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    CString szCSDVersion; // at most 127 units
};

constexpr DWORD OSVERSIONINFO_SIZE = 276;

/// Here: the kernel's three numbers, platform 4, the distribution's name. FALSE for a wrong size
/// member.
UTILITY_CORE_API BOOL GetVersionExW(OSVERSIONINFOW& version);

/// The distribution with its version, such as "Debian GNU/Linux 12 (bookworm)".
UTILITY_CORE_API CString GetDistributionName();

/// Bits of a machine word: 32 or 64.
UTILITY_CORE_API int GetMachineWordSize();

/// The effective user's login, else what LOGNAME says; "" if neither is known. At most 255 units.
UTILITY_CORE_API CString GetUserNameW();

} // namespace utility
