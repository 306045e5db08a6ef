#include "platform/system/process/Services.h"

#include "platform/backend/posix/process/ProgramCall.h"
#include "platform/backend/posix/service/ServiceRecord.h"
#include "platform/backend/posix/service/UnitFile.h"
#include "platform/base/CaseFold.h"
#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/process/Handle.h"

#include <filesystem>
#include <unistd.h>

namespace utility
{

namespace
{

/// What a manager may be opened for by everybody: connect, list, ask for its lock and rights.
constexpr DWORD READING = 0x80020000 | SC_MANAGER_CONNECT | SC_MANAGER_ENUMERATE_SERVICE | 0x10;

constexpr char NOT_FOUND[] =
    "not-found"; // how the manager calls a service that it knows by name alone

bool Succeed(DWORD code)
{
    if (code != ERROR_SUCCESS)
        SetLastError(code);
    return code == ERROR_SUCCESS;
}

bool IsThisMachine(const CString& machine)
{
    CString name = machine;
    name.TrimLeft(u"\\");
    std::array<char, 256> own{};
    ::gethostname(own.data(), own.size() - 1);
    return name.IsEmpty() || name == u"." || EqualNoCase(name.View(), FromUtf8(own.data()).View());
}

bool IsStartType(DWORD startType)
{
    return startType >= SERVICE_AUTO_START && startType <= SERVICE_DISABLED;
}

DWORD OpenService(const std::shared_ptr<CServiceManagerRecord>& manager, const std::string& name,
                  HANDLE& handle)
{
    if (name.empty())
        return ERROR_INVALID_NAME;
    const std::scoped_lock lock(manager->m_Lock);
    CBusMessage reply;
    if (const DWORD code = manager->m_Bus.Call("LoadUnit", &reply, "s", name.c_str()))
        return code;
    const char* path = nullptr;
    if (::sd_bus_message_read(reply.get(), "o", &path) < 0)
        return ERROR_GEN_FAILURE;
    std::string state;
    if (const DWORD code = manager->m_Bus.ReadText(path, "LoadState", state))
        return code;
    if (state == NOT_FOUND)
        return ERROR_SERVICE_DOES_NOT_EXIST;
    handle = AddHandle(std::make_shared<CServiceRecord>(manager, name, path));
    return ERROR_SUCCESS;
}

DWORD Reload(const std::shared_ptr<CServiceManagerRecord>& manager)
{
    const std::scoped_lock lock(manager->m_Lock);
    return manager->m_Bus.Call("Reload", nullptr, nullptr);
}

/// Has the manager take up the file of a new service.
DWORD TakeUp(const std::shared_ptr<CServiceManagerRecord>& manager, const std::string& name,
             DWORD startType, HANDLE& handle)
{
    if (const DWORD code = Reload(manager))
        return code;
    HANDLE made = nullptr;
    if (const DWORD code = OpenService(manager, name, made))
        return code;
    const DWORD code = FindHandleAs<CServiceRecord>(made)->ChangeStartType(startType);
    if (code == ERROR_SUCCESS)
        handle = made;
    else
        CloseHandle(made);
    return code;
}

DWORD CreateService(const std::shared_ptr<CServiceManagerRecord>& manager, const std::string& name,
                    const CString& displayName, DWORD startType, const CString& commandLine,
                    HANDLE& handle)
{
    HANDLE old = nullptr;
    const DWORD found = OpenService(manager, name, old);
    if (found == ERROR_SUCCESS)
        CloseHandle(old);
    if (found != ERROR_SERVICE_DOES_NOT_EXIST)
        return found == ERROR_SUCCESS ? ERROR_SERVICE_EXISTS : found;

    CProgramCall call = FindProgramCall(commandLine.View());
    if (call.m_Program.m_Path.empty())
        return call.m_Program.m_Error;
    call.m_Arguments.front() = std::filesystem::absolute(call.m_Program.m_Path).string();
    if (const DWORD code = WriteUnitFile(name, MakeUnitText(displayName, call.m_Arguments)))
        return code;

    const DWORD code = TakeUp(manager, name, startType, handle);
    if (code != ERROR_SUCCESS && DeleteUnitFile(name) == ERROR_SUCCESS)
        static_cast<void>(Reload(manager));
    return code;
}

} // namespace

SC_HANDLE OpenSCManagerW(const char16_t* machine, DWORD access)
{
    if (!IsThisMachine(CString(machine)))
    {
        SetLastError(ERROR_BAD_NETPATH);
        return nullptr;
    }
    const auto manager = std::make_shared<CServiceManagerRecord>();
    DWORD code = manager->m_Bus.Connect();
    if (code == ERROR_SUCCESS && (access & ~READING) != 0)
        code = CheckUnitFolder();
    return Succeed(code) ? AddHandle(manager) : nullptr;
}

SC_HANDLE OpenServiceW(SC_HANDLE manager, const char16_t* name, DWORD)
{
    HANDLE handle = nullptr;
    if (const auto record = FindHandleAs<CServiceManagerRecord>(manager))
        Succeed(OpenService(record, UnitName(CString(name)), handle));
    return handle;
}

bool CloseServiceHandle(SC_HANDLE handle)
{
    return CloseHandle(handle);
}

bool QueryServiceStatus(SC_HANDLE service, SERVICE_STATUS& status)
{
    const auto record = FindHandleAs<CServiceRecord>(service);
    return record && Succeed(record->ReadState(status.dwCurrentState));
}

bool StartServiceW(SC_HANDLE service)
{
    const auto record = FindHandleAs<CServiceRecord>(service);
    return record && Succeed(record->OrderStart());
}

bool ControlService(SC_HANDLE service, DWORD order, SERVICE_STATUS& status)
{
    const auto record = FindHandleAs<CServiceRecord>(service);
    if (!record)
        return false;
    if (order != SERVICE_CONTROL_STOP)
        return Succeed(ERROR_INVALID_PARAMETER);
    return Succeed(record->OrderStop()) && Succeed(record->ReadState(status.dwCurrentState));
}

bool QueryServiceConfigW(SC_HANDLE service, QUERY_SERVICE_CONFIGW& config)
{
    const auto record = FindHandleAs<CServiceRecord>(service);
    return record && Succeed(record->ReadStartType(config.dwStartType));
}

bool ChangeServiceConfigW(SC_HANDLE service, DWORD startType)
{
    const auto record = FindHandleAs<CServiceRecord>(service);
    return record && Succeed(IsStartType(startType) ? record->ChangeStartType(startType)
                                                    : ERROR_INVALID_PARAMETER);
}

bool ChangeServiceConfig2W(SC_HANDLE service, DWORD what, const CString& text)
{
    const auto record = FindHandleAs<CServiceRecord>(service);
    if (!record)
        return false;
    return Succeed(what == SERVICE_CONFIG_DESCRIPTION ? record->ChangeDescription(text)
                                                      : ERROR_INVALID_PARAMETER);
}

SC_HANDLE CreateServiceW(SC_HANDLE manager, const char16_t* name, const CString& displayName,
                         DWORD type, DWORD startType, DWORD errorControl,
                         const CString& commandLine)
{
    const auto record = FindHandleAs<CServiceManagerRecord>(manager);
    if (!record)
        return nullptr;
    const bool isKnown = type == SERVICE_WIN32_OWN_PROCESS &&
                         errorControl == SERVICE_ERROR_NORMAL && IsStartType(startType);
    HANDLE handle = nullptr;
    Succeed(isKnown ? CreateService(record, UnitName(CString(name)), displayName, startType,
                                    commandLine, handle)
                    : ERROR_INVALID_PARAMETER);
    return handle;
}

bool DeleteService(SC_HANDLE service)
{
    const auto record = FindHandleAs<CServiceRecord>(service);
    return record && Succeed(record->Delete());
}

} // namespace utility
