#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// Services of the system: asked, steered, made and deleted through the system's own manager.
///
/// A service is a unit of that manager; "board" means "board.service". Whatever fails writes the
/// thread's last error:
///
///     5        the manager, or the disk, does not permit it to this user
///     53       another machine: only this one can be reached
///     109      the road to the manager broke during the call
///     121      the manager did not answer in time
///     123      no name that a service may have
///     1058     it is disabled, so it cannot be started
///     1060     there is no such service
///     1062     it does not run, so it cannot be stopped
///     1073     there is one already
///     1722     no manager answers on this system
///
/// Any thread; calls through one manager's handles follow one another.

using SC_HANDLE = HANDLE;

// What a manager is opened for; to create asks that this user may write where new services go.
constexpr DWORD SC_MANAGER_CONNECT = 1;
constexpr DWORD SC_MANAGER_CREATE_SERVICE = 2;
constexpr DWORD SC_MANAGER_ENUMERATE_SERVICE = 4;

// What a service is opened for. Taken as said: whether it is permitted shows when it is done.
constexpr DWORD SERVICE_QUERY_CONFIG = 1;
constexpr DWORD SERVICE_CHANGE_CONFIG = 2;
constexpr DWORD SERVICE_QUERY_STATUS = 4;
constexpr DWORD SERVICE_START = 0x10;
constexpr DWORD SERVICE_STOP = 0x20;
constexpr DWORD SERVICE_DELETE = 0x10000;

/// Null or empty means this machine, as do "." and its own name, with or without two separators in
/// front. Null where no manager answers.
UTILITY_CORE_API SC_HANDLE OpenSCManagerW(const char16_t* machine, DWORD access);

/// Null if there is no such service; the manager's handle may be closed before this one.
///
/// `WaitForSingleObject` on a service that was ordered to stop: once its manager told of a change.
UTILITY_CORE_API SC_HANDLE OpenServiceW(SC_HANDLE manager, const char16_t* name, DWORD access);
UTILITY_CORE_API bool CloseServiceHandle(SC_HANDLE handle);

constexpr DWORD SERVICE_STOPPED = 1;
constexpr DWORD SERVICE_START_PENDING = 2;
constexpr DWORD SERVICE_STOP_PENDING = 3;
constexpr DWORD SERVICE_RUNNING = 4;

struct SERVICE_STATUS
{
    DWORD dwCurrentState = 0;
};

UTILITY_CORE_API bool QueryServiceStatus(SC_HANDLE service, SERVICE_STATUS& status);

/// Orders the start and returns; true for one that runs already.
UTILITY_CORE_API bool StartServiceW(SC_HANDLE service);

constexpr DWORD SERVICE_CONTROL_STOP = 1;

/// Orders a stop, the only order there is (others fail with 87), and returns with the state reached
/// by then: stop pending until it is done.
UTILITY_CORE_API bool ControlService(SC_HANDLE service, DWORD order, SERVICE_STATUS& status);

// How a service comes to run
constexpr DWORD SERVICE_AUTO_START = 2;   // with the system
constexpr DWORD SERVICE_DEMAND_START = 3; // when asked
constexpr DWORD SERVICE_DISABLED = 4;     // never

struct QUERY_SERVICE_CONFIGW
{
    DWORD dwStartType = 0;
};

UTILITY_CORE_API bool QueryServiceConfigW(SC_HANDLE service, QUERY_SERVICE_CONFIGW& config);

/// Fails with 87 for no start type, and with 50 for a service that cannot come with the system.
UTILITY_CORE_API bool ChangeServiceConfigW(SC_HANDLE service, DWORD startType);

constexpr DWORD SERVICE_CONFIG_DESCRIPTION = 1;

/// Replaces what people read of the service; for services made by `CreateServiceW` (others: 5).
UTILITY_CORE_API bool ChangeServiceConfig2W(SC_HANDLE service, DWORD what, const CString& text);

constexpr DWORD SERVICE_WIN32_OWN_PROCESS = 16;
constexpr DWORD SERVICE_ERROR_NORMAL = 1;

/// Makes a service of a program, read as by `CreateProcessW` and failing as there; it is not
/// started. Null, and nothing is left behind, if it fails.
///
/// Its file goes to /usr/local/lib/systemd/system, the first folder of `SYSTEMD_UNIT_PATH` if that
/// is set. Only the type and error control above are known (others: 87).
UTILITY_CORE_API SC_HANDLE CreateServiceW(SC_HANDLE manager, const char16_t* name,
                                          const CString& displayName, DWORD type, DWORD startType,
                                          DWORD errorControl, const CString& commandLine);

/// Deletes a service made by `CreateServiceW` (others: 5), which then never starts again; one that
/// runs goes on until it ends.
UTILITY_CORE_API bool DeleteService(SC_HANDLE service);

/// What `GetWindowStationFlags` gives where people may see windows.
constexpr DWORD WSF_VISIBLE = 1;

/// 0 in a service of the system that was given no display.
UTILITY_CORE_API DWORD GetWindowStationFlags();

} // namespace utility
