#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

/// Services of a machine, by name; Services.h tells what stands for them and the codes there are.
///
/// A null machine is this one. All but the four tests give 0 or the code why it failed, which is
/// the thread's last error as well. Any thread; nothing is kept between two calls.
class UTILITY_CORE_API CService
{
public:
    static bool IsInstalled(const char16_t* machine, const char16_t* service);
    static bool IsRunning(const char16_t* machine, const char16_t* service);
    /// Whether the machine's manager may be opened so: `SC_MANAGER_...`.
    static bool IsPermitted(const char16_t* machine, DWORD access);
    /// Whether this program runs where nobody sees windows.
    static bool RunningAsService();

    /// Makes a service of a program, which is started by `Start` or with the system.
    ///
    /// No path means the running program. Arguments go behind it, if the two stay within 260
    /// characters; else they are left out. An empty description leaves the display name as such.
    static DWORD Install(const char16_t* machine, const char16_t* service,
                         const char16_t* displayName, DWORD startType,
                         const char16_t* path = nullptr, const char16_t* arguments = nullptr,
                         const char16_t* description = nullptr);

    /// Stops the service first; if that fails, it stays.
    static DWORD Uninstall(const char16_t* machine, const char16_t* service);

    static DWORD Start(const char16_t* machine, const char16_t* service);

    /// Waits until the service has stopped, but at most two minutes: then WAIT_TIMEOUT. 0 for one
    /// that does not run.
    static DWORD Stop(const char16_t* machine, const char16_t* service);

    /// 2 with the system, 3 when asked, 4 disabled. `startType` keeps its preset if that fails.
    static DWORD GetStartType(const char16_t* machine, const char16_t* service, DWORD& startType);
    static DWORD SetStartupType(const char16_t* machine, const char16_t* service, DWORD startType);
};

} // namespace utility
