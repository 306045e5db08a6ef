#include "frame/Service.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/String.h"
#include "platform/system/Clock.h"
#include "platform/system/process/Handle.h"
#include "platform/system/process/Process.h"
#include "platform/system/process/Services.h"

namespace utility
{

namespace
{

constexpr DWORD STOP_ACCESS = SERVICE_STOP | SERVICE_QUERY_STATUS;
constexpr DWORD START_ACCESS = SERVICE_START | SERVICE_QUERY_STATUS;

constexpr DWORD STOP_LOOK = 1000;            // ms between two looks at a service that stops
constexpr std::uint64_t STOP_LIMIT = 120000; // ms

constexpr int LONGEST_LINE = 260;

class CServiceHandle
{
public:
    explicit CServiceHandle(SC_HANDLE handle) : m_Handle(handle) {}
    ~CServiceHandle()
    {
        if (m_Handle)
            CloseServiceHandle(m_Handle);
    }
    CServiceHandle(const CServiceHandle&) = delete;
    CServiceHandle& operator=(const CServiceHandle&) = delete;

    explicit operator bool() const { return m_Handle != nullptr; }
    SC_HANDLE Get() const { return m_Handle; }

private:
    const SC_HANDLE m_Handle;
};

/// A service of a machine's manager; null, with the last error, if it is not there.
class COpenService
{
public:
    COpenService(const char16_t* machine, DWORD managerAccess, const char16_t* service,
                 DWORD access)
        : m_Manager(OpenSCManagerW(machine, managerAccess)),
          m_Service(m_Manager ? OpenServiceW(m_Manager.Get(), service, access) : nullptr)
    {
    }

    explicit operator bool() const { return static_cast<bool>(m_Service); }
    SC_HANDLE Get() const { return m_Service.Get(); }

private:
    const CServiceHandle m_Manager;
    const CServiceHandle m_Service;
};

DWORD Result(bool isDone)
{
    return isDone ? DWORD{ERROR_SUCCESS} : GetLastError();
}

/// Waits while a stop is under way.
DWORD AwaitStop(SC_HANDLE service, SERVICE_STATUS status)
{
    const std::uint64_t end = GetTickCount() + STOP_LIMIT;
    while (status.dwCurrentState == SERVICE_STOP_PENDING)
    {
        if (GetTickCount() >= end)
        {
            SetLastError(WAIT_TIMEOUT);
            return WAIT_TIMEOUT;
        }
        // A manager that tells of the end shortens the wait; the next look meets one that is lost.
        WaitForSingleObject(service, STOP_LOOK);
        if (!QueryServiceStatus(service, status))
            return GetLastError();
    }
    return ERROR_SUCCESS;
}

CString ProgramLine(const char16_t* path, const char16_t* arguments)
{
    CString line(path);
    if (line.IsEmpty())
        line = GetModuleFileNameW();
    const CString rest(arguments);
    const bool fits = line.GetLength() + 1 + rest.GetLength() <= LONGEST_LINE;
    return rest.IsEmpty() || !fits ? line : line + u" " + rest;
}

} // namespace

bool CService::IsInstalled(const char16_t* machine, const char16_t* service)
{
    return static_cast<bool>(
        COpenService(machine, SC_MANAGER_CONNECT, service, SERVICE_QUERY_STATUS));
}

bool CService::IsRunning(const char16_t* machine, const char16_t* service)
{
    const COpenService open(machine, SC_MANAGER_ENUMERATE_SERVICE, service, SERVICE_QUERY_STATUS);
    SERVICE_STATUS status;
    return open && QueryServiceStatus(open.Get(), status) &&
           status.dwCurrentState == SERVICE_RUNNING;
}

bool CService::IsPermitted(const char16_t* machine, DWORD access)
{
    return static_cast<bool>(CServiceHandle(OpenSCManagerW(machine, access)));
}

bool CService::RunningAsService()
{
    return (GetWindowStationFlags() & WSF_VISIBLE) == 0;
}

DWORD CService::Install(const char16_t* machine, const char16_t* service,
                        const char16_t* displayName, DWORD startType, const char16_t* path,
                        const char16_t* arguments, const char16_t* description)
{
    const CServiceHandle manager(
        OpenSCManagerW(machine, SC_MANAGER_CONNECT | SC_MANAGER_CREATE_SERVICE));
    if (!manager)
        return GetLastError();
    const CServiceHandle made(CreateServiceW(manager.Get(), service, CString(displayName),
                                             SERVICE_WIN32_OWN_PROCESS, startType,
                                             SERVICE_ERROR_NORMAL, ProgramLine(path, arguments)));
    if (!made)
        return GetLastError();
    const CString text(description);
    return Result(text.IsEmpty() ||
                  ChangeServiceConfig2W(made.Get(), SERVICE_CONFIG_DESCRIPTION, text));
}

DWORD CService::Uninstall(const char16_t* machine, const char16_t* service)
{
    if (const DWORD code = Stop(machine, service))
        return code;
    const COpenService open(machine, SC_MANAGER_CONNECT, service, SERVICE_DELETE);
    return Result(open && DeleteService(open.Get()));
}

DWORD CService::Start(const char16_t* machine, const char16_t* service)
{
    const COpenService open(machine, SC_MANAGER_CONNECT, service, START_ACCESS);
    return Result(open && StartServiceW(open.Get()));
}

DWORD CService::Stop(const char16_t* machine, const char16_t* service)
{
    const COpenService open(machine, SC_MANAGER_CONNECT, service, STOP_ACCESS);
    SERVICE_STATUS status;
    if (open && ControlService(open.Get(), SERVICE_CONTROL_STOP, status))
        return AwaitStop(open.Get(), status);
    const DWORD code = GetLastError();
    return code == ERROR_SERVICE_NOT_ACTIVE ? DWORD{ERROR_SUCCESS} : code;
}

DWORD CService::GetStartType(const char16_t* machine, const char16_t* service, DWORD& startType)
{
    const COpenService open(machine, SC_MANAGER_CONNECT, service, SERVICE_QUERY_CONFIG);
    QUERY_SERVICE_CONFIGW config;
    if (!open || !QueryServiceConfigW(open.Get(), config))
        return GetLastError();
    startType = config.dwStartType;
    return ERROR_SUCCESS;
}

DWORD CService::SetStartupType(const char16_t* machine, const char16_t* service, DWORD startType)
{
    const COpenService open(machine, SC_MANAGER_CONNECT, service, SERVICE_CHANGE_CONFIG);
    return Result(open && ChangeServiceConfigW(open.Get(), startType));
}

} // namespace utility
