#include "platform/backend/posix/service/ServiceRecord.h"

#include "platform/backend/posix/service/UnitFile.h"
#include "platform/base/ErrorCodes.h"
#include "platform/system/process/Services.h"

#include <string_view>

namespace utility
{

namespace
{

constexpr char REPLACE[] = "replace"; // an order that contradicts one still waiting takes its place
constexpr int ONE_NAME = 1;
constexpr int IN_EFFECT_FOR_GOOD = 0; // not only until the system starts anew
constexpr int WITHOUT_FORCE = 0;

struct CNamedNumber
{
    const char* m_Name;
    DWORD m_Number;
};

/// The manager's words for what a service does now.
constexpr CNamedNumber STATES[] = {
    {"active", SERVICE_RUNNING},
    {"reloading", SERVICE_RUNNING},
    {"refreshing", SERVICE_RUNNING},
    {"activating", SERVICE_START_PENDING},
    {"deactivating", SERVICE_STOP_PENDING},
    {"inactive", SERVICE_STOPPED},
    {"failed", SERVICE_STOPPED},
    {"maintenance", SERVICE_STOPPED},
};

/// The manager's words for how a service comes to run; those that it is told by others, such as
/// "static" and "indirect", mean when asked.
constexpr CNamedNumber START_TYPES[] = {
    {"enabled", SERVICE_AUTO_START},
    {"enabled-runtime", SERVICE_AUTO_START},
    {"masked", SERVICE_DISABLED},
    {"masked-runtime", SERVICE_DISABLED},
};

template <std::size_t SIZE>
DWORD NumberOf(const CNamedNumber (&table)[SIZE], std::string_view name, DWORD otherwise)
{
    for (const CNamedNumber& row : table)
    {
        if (name == row.m_Name)
            return row.m_Number;
    }
    return otherwise;
}

} // namespace

CServiceRecord::CServiceRecord(std::shared_ptr<CServiceManagerRecord> manager, std::string name,
                               std::string path)
    : m_Manager(std::move(manager)),
      m_Name(std::move(name)),
      m_Path(std::move(path))
{
}

DWORD CServiceRecord::Wait(DWORD milliseconds)
{
    const std::scoped_lock lock(m_Manager->m_Lock);
    return m_Manager->m_Bus.WaitForChange(milliseconds);
}

DWORD CServiceRecord::ReadState(DWORD& state)
{
    const std::scoped_lock lock(m_Manager->m_Lock);
    return ReadStateLocked(state);
}

DWORD CServiceRecord::ReadStateLocked(DWORD& state)
{
    std::string name;
    if (const DWORD code = m_Manager->m_Bus.ReadText(m_Path, "ActiveState", name))
        return code;
    const DWORD found = NumberOf(STATES, name, 0);
    if (found == 0)
        return ERROR_GEN_FAILURE;
    if (found != SERVICE_STOPPED && !m_StopOrder.empty())
    {
        // An order is accepted before it is begun with; till then the service shows as running.
        std::string order;
        if (const DWORD code = m_Manager->m_Bus.ReadJob(m_Path, order))
            return code;
        state = order == m_StopOrder ? SERVICE_STOP_PENDING : found;
        return ERROR_SUCCESS;
    }
    state = found;
    return ERROR_SUCCESS;
}

DWORD CServiceRecord::OrderStart()
{
    const std::scoped_lock lock(m_Manager->m_Lock);
    return m_Manager->m_Bus.Call("StartUnit", nullptr, "ss", m_Name.c_str(), REPLACE);
}

DWORD CServiceRecord::OrderStop()
{
    const std::scoped_lock lock(m_Manager->m_Lock);
    DWORD state = 0;
    if (const DWORD code = ReadStateLocked(state))
        return code;
    if (state == SERVICE_STOPPED)
        return ERROR_SERVICE_NOT_ACTIVE;
    if (const DWORD code = m_Manager->m_Bus.Follow(m_Path))
        return code;

    CBusMessage reply;
    if (const DWORD code = m_Manager->m_Bus.Call("StopUnit", &reply, "ss", m_Name.c_str(), REPLACE))
        return code;
    const char* order = nullptr;
    if (::sd_bus_message_read(reply.get(), "o", &order) < 0)
        return ERROR_GEN_FAILURE;
    m_StopOrder = order;
    return ERROR_SUCCESS;
}

DWORD CServiceRecord::ReadStartType(DWORD& startType)
{
    const std::scoped_lock lock(m_Manager->m_Lock);
    CBusMessage reply;
    if (const DWORD code = m_Manager->m_Bus.Call("GetUnitFileState", &reply, "s", m_Name.c_str()))
        return code;
    const char* name = nullptr;
    if (::sd_bus_message_read(reply.get(), "s", &name) < 0)
        return ERROR_GEN_FAILURE;
    startType = NumberOf(START_TYPES, name, SERVICE_DEMAND_START);
    return ERROR_SUCCESS;
}

DWORD CServiceRecord::ChangeStartType(DWORD startType)
{
    const std::scoped_lock lock(m_Manager->m_Lock);
    const DWORD code = ChangeLinks(startType);
    const DWORD reload = m_Manager->m_Bus.Call("Reload", nullptr, nullptr);
    return code != ERROR_SUCCESS ? code : reload;
}

/// The links on disk by which the manager knows a start type.
DWORD CServiceRecord::ChangeLinks(DWORD startType)
{
    CServiceBus& bus = m_Manager->m_Bus;
    const char* name = m_Name.c_str();
    if (startType != SERVICE_DISABLED)
    {
        if (const DWORD code =
                bus.Call("UnmaskUnitFiles", nullptr, "asb", ONE_NAME, name, IN_EFFECT_FOR_GOOD))
            return code;
    }
    if (startType != SERVICE_AUTO_START)
    {
        const DWORD code =
            bus.Call("DisableUnitFiles", nullptr, "asb", ONE_NAME, name, IN_EFFECT_FOR_GOOD);
        if (code != ERROR_SUCCESS || startType == SERVICE_DEMAND_START)
            return code;
        return bus.Call("MaskUnitFiles", nullptr, "asbb", ONE_NAME, name, IN_EFFECT_FOR_GOOD,
                        WITHOUT_FORCE);
    }
    CBusMessage reply;
    if (const DWORD code = bus.Call("EnableUnitFiles", &reply, "asbb", ONE_NAME, name,
                                    IN_EFFECT_FOR_GOOD, WITHOUT_FORCE))
        return code;
    int canBeEnabled = 0;
    const bool isRead = ::sd_bus_message_read(reply.get(), "b", &canBeEnabled) >= 0;
    return isRead && canBeEnabled != 0 ? ERROR_SUCCESS : ERROR_NOT_SUPPORTED;
}

DWORD CServiceRecord::ChangeDescription(const CString& description)
{
    const std::scoped_lock lock(m_Manager->m_Lock);
    if (const DWORD code = ChangeUnitDescription(m_Name, description))
        return code;
    return m_Manager->m_Bus.Call("Reload", nullptr, nullptr);
}

DWORD CServiceRecord::Delete()
{
    const std::scoped_lock lock(m_Manager->m_Lock);
    if (const DWORD code = CheckUnitFile(m_Name))
        return code;
    // The manager finds the links to a file only while that is there.
    if (const DWORD code = ChangeLinks(SERVICE_DEMAND_START))
        return code;
    if (const DWORD code = DeleteUnitFile(m_Name))
        return code;
    return m_Manager->m_Bus.Call("Reload", nullptr, nullptr);
}

} // namespace utility
