#include "platform/backend/posix/service/ServiceBus.h"

#include "platform/backend/posix/ErrorMap.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/Clock.h"
#include "platform/system/process/Handle.h"

#include <cerrno>
#include <cstdlib>
#include <string_view>

namespace utility
{

namespace
{

struct CNamedError
{
    const char* m_Name;
    DWORD m_Code;
};

/// Names whose number of errno says too little.
constexpr CNamedError NAMED_ERRORS[] = {
    {"org.freedesktop.systemd1.NoSuchUnit", ERROR_SERVICE_DOES_NOT_EXIST},
    {"org.freedesktop.systemd1.UnitMasked", ERROR_SERVICE_DISABLED},
    {SD_BUS_ERROR_INTERACTIVE_AUTHORIZATION_REQUIRED, ERROR_ACCESS_DENIED},
    {SD_BUS_ERROR_SERVICE_UNKNOWN, RPC_S_SERVER_UNAVAILABLE},
    {SD_BUS_ERROR_NAME_HAS_NO_OWNER, RPC_S_SERVER_UNAVAILABLE},
};
constexpr std::string_view NOT_STARTED = "org.freedesktop.DBus.Error.Spawn."; // the bus tried to

constexpr std::uint64_t MICROSECONDS = 1000; // in a millisecond

int NoteChange(sd_bus_message*, void* hasChanged, sd_bus_error*)
{
    *static_cast<bool*>(hasChanged) = true;
    return 0;
}

} // namespace

DWORD CBusError::GetCode(int result) const
{
    if (result >= 0)
        return ERROR_SUCCESS;
    const std::string_view name = m_Error.name ? m_Error.name : "";
    for (const CNamedError& named : NAMED_ERRORS)
    {
        if (name == named.m_Name)
            return named.m_Code;
    }
    if (name.starts_with(NOT_STARTED))
        return RPC_S_SERVER_UNAVAILABLE;
    return result == -ENOTCONN ? ERROR_BROKEN_PIPE : ErrorFromErrno(-result);
}

CServiceBus::~CServiceBus()
{
    ::sd_bus_flush_close_unref(m_Bus);
}

DWORD CServiceBus::Connect()
{
    const int result = ::sd_bus_open_system(&m_Bus);
    if (result < 0)
    {
        const DWORD code = ErrorFromErrno(-result);
        return code == ERROR_ACCESS_DENIED ? code : RPC_S_SERVER_UNAVAILABLE;
    }
    CBusError error;
    char* version = nullptr; // proves that the manager answers
    const int answer = ::sd_bus_get_property_string(m_Bus, MANAGER_NAME, MANAGER_PATH, MANAGER,
                                                    "Version", error.Out(), &version);
    std::free(version);
    return error.GetCode(answer);
}

DWORD CServiceBus::ReadText(const std::string& unit, const char* property, std::string& text) const
{
    CBusError error;
    char* value = nullptr;
    const int result = ::sd_bus_get_property_string(m_Bus, MANAGER_NAME, unit.c_str(), UNIT,
                                                    property, error.Out(), &value);
    if (result >= 0)
        text = value;
    std::free(value);
    return error.GetCode(result);
}

DWORD CServiceBus::ReadJob(const std::string& unit, std::string& job) const
{
    CBusError error;
    sd_bus_message* message = nullptr;
    int result = ::sd_bus_get_property(m_Bus, MANAGER_NAME, unit.c_str(), UNIT, "Job", error.Out(),
                                       &message, "(uo)");
    const CBusMessage owned(message);
    std::uint32_t number = 0;
    const char* path = nullptr;
    if (result >= 0)
        result = ::sd_bus_message_read(message, "(uo)", &number, &path);
    if (result >= 0)
        job = path;
    return error.GetCode(result);
}

DWORD CServiceBus::Follow(const std::string& unit)
{
    if (!m_IsSubscribed)
    {
        if (const DWORD code = Call("Subscribe", nullptr, nullptr); code != ERROR_SUCCESS)
            return code;
        m_IsSubscribed = true;
    }
    const int result = ::sd_bus_match_signal(m_Bus, nullptr, MANAGER_NAME, unit.c_str(),
                                             "org.freedesktop.DBus.Properties", "PropertiesChanged",
                                             NoteChange, &m_HasChanged);
    return CBusError().GetCode(result);
}

DWORD CServiceBus::WaitForChange(DWORD milliseconds)
{
    const std::uint64_t end = GetTickCount() + milliseconds;
    for (;;)
    {
        const int result = ::sd_bus_process(m_Bus, nullptr);
        if (result < 0)
        {
            SetLastError(CBusError().GetCode(result));
            return WAIT_FAILED;
        }
        if (std::exchange(m_HasChanged, false))
            return WAIT_OBJECT_0;
        if (result > 0)
            continue; // there may be more
        const std::uint64_t now = GetTickCount();
        if (milliseconds != INFINITE && now >= end)
            return WAIT_TIMEOUT;
        ::sd_bus_wait(m_Bus, milliseconds == INFINITE ? UINT64_MAX : (end - now) * MICROSECONDS);
    }
}

} // namespace utility
