#pragma once

#include "platform/base/Types.h"

#include <memory>
#include <string>
#include <systemd/sd-bus.h>

namespace utility
{

/// A failure as the bus tells it: by name, or by number alone.
class CBusError
{
public:
    CBusError() = default;
    ~CBusError() { ::sd_bus_error_free(&m_Error); }
    CBusError(const CBusError&) = delete;
    CBusError& operator=(const CBusError&) = delete;

    sd_bus_error* Out() { return &m_Error; }

    /// The classic code of what a call of the bus gave; 0 for success.
    DWORD GetCode(int result) const;

private:
    sd_bus_error m_Error = {}; // no name: no error yet
};

struct CBusMessageFree
{
    void operator()(sd_bus_message* message) const { ::sd_bus_message_unref(message); }
};
using CBusMessage = std::unique_ptr<sd_bus_message, CBusMessageFree>;

/// The road to the system's service manager. Results are classic codes; one thread at a time.
class CServiceBus
{
public:
    CServiceBus() = default;
    ~CServiceBus();
    CServiceBus(const CServiceBus&) = delete;
    CServiceBus& operator=(const CServiceBus&) = delete;

    /// Reaches the bus that DBUS_SYSTEM_BUS_ADDRESS names, else the system's own, and on it the
    /// manager.
    DWORD Connect();

    /// Calls an operation of the manager; `types` are its arguments' as the bus writes them.
    template <typename... TValues>
    DWORD Call(const char* member, CBusMessage* reply, const char* types, TValues... values)
    {
        CBusError error;
        sd_bus_message* message = nullptr;
        const int result = ::sd_bus_call_method(m_Bus, MANAGER_NAME, MANAGER_PATH, MANAGER, member,
                                                error.Out(), &message, types, values...);
        if (CBusMessage owned(message); reply)
            *reply = std::move(owned);
        return error.GetCode(result);
    }

    /// A property of a unit that is text.
    DWORD ReadText(const std::string& unit, const char* property, std::string& text) const;
    /// The order that the manager still has to carry out on a unit; "/" if there is none.
    DWORD ReadJob(const std::string& unit, std::string& job) const;

    /// Has changes of one unit told; WaitForChange then ends with the first.
    DWORD Follow(const std::string& unit);
    /// As WaitForSingleObject.
    DWORD WaitForChange(DWORD milliseconds);

private:
    static constexpr char MANAGER_NAME[] = "org.freedesktop.systemd1";
    static constexpr char MANAGER_PATH[] = "/org/freedesktop/systemd1";
    static constexpr char MANAGER[] = "org.freedesktop.systemd1.Manager";
    static constexpr char UNIT[] = "org.freedesktop.systemd1.Unit";

    sd_bus* m_Bus = nullptr;
    bool m_IsSubscribed = false;
    bool m_HasChanged = false;
};

} // namespace utility
