#include "frame/Evt.h"

#include "platform/base/Atoms.h"

#include <algorithm>
#include <vector>

namespace utility
{

namespace
{

constexpr int EVERY_EVENT = 0;

struct CSubscription
{
    int m_EventId;
    CEvt::Handler m_Handler; // null: removed while an event is sent
    CEvt* m_Object;          // not owned
};

struct CEventBus
{
    // In the order of subscribing. While an event is sent it only grows, so that indexes hold.
    std::vector<CSubscription> m_Subscriptions;
    int m_SendingLevel = 0;
    bool m_IsUnregisterPending = false;
    CEvt::SendToAllFunc m_SendToAll = nullptr;
    void* m_SendToAllInfo = nullptr;
};

/// Never destroyed: listeners may be static objects of a host.
CEventBus& Bus()
{
    static CEventBus& bus = *new CEventBus;
    return bus;
}

/// Counts a send that is under way, also when a listener throws; `sweep` runs behind the outermost.
class CSendingLevel
{
public:
    CSendingLevel(CEventBus& bus, void (*sweep)()) : m_Bus(bus), m_Sweep(sweep)
    {
        ++m_Bus.m_SendingLevel;
    }
    ~CSendingLevel()
    {
        if (--m_Bus.m_SendingLevel == 0 && m_Bus.m_IsUnregisterPending)
            m_Sweep();
    }
    CSendingLevel(const CSendingLevel&) = delete;
    CSendingLevel& operator=(const CSendingLevel&) = delete;

private:
    CEventBus& m_Bus;
    void (*m_Sweep)();
};

} // namespace

void CEvt::Register(CEvt* object, Handler handler)
{
    Bus().m_Subscriptions.push_back({EVERY_EVENT, handler, object});
}

void CEvt::Register(const CString& name, CEvt* object, Handler handler)
{
    if (const int id = GetEventID(name))
        Bus().m_Subscriptions.push_back({id, handler, object});
}

void CEvt::Unregister(const CString& name, CEvt* object)
{
    if (const int id = GetEventID(name))
        RemoveRecords(object, id);
}

void CEvt::UnregisterAll(CEvt* object)
{
    RemoveRecords(object, EVERY_EVENT);
}

void CEvt::UnregisterAll()
{
    CEventBus& bus = Bus();
    for (CSubscription& subscription : bus.m_Subscriptions)
        subscription.m_Handler = nullptr;
    bus.m_IsUnregisterPending = true;
    if (bus.m_SendingLevel == 0)
        UnregisterPendingItems();
}

/// All of an object's, or those to one event.
void CEvt::RemoveRecords(const CEvt* object, int id)
{
    CEventBus& bus = Bus();
    for (CSubscription& subscription : bus.m_Subscriptions)
    {
        if (subscription.m_Object != object || (id != 0 && subscription.m_EventId != id))
            continue;
        subscription.m_Handler = nullptr;
        bus.m_IsUnregisterPending = true;
    }
    if (bus.m_SendingLevel == 0 && bus.m_IsUnregisterPending)
        UnregisterPendingItems();
}

void CEvt::UnregisterPendingItems()
{
    CEventBus& bus = Bus();
    std::erase_if(bus.m_Subscriptions, [](const CSubscription& subscription)
                  { return subscription.m_Handler == nullptr; });
    bus.m_IsUnregisterPending = false;
}

int CEvt::Send(const CString& name, LPARAM a, LPARAM b)
{
    CEventBus& bus = Bus();
    if (bus.m_Subscriptions.empty())
        return 0;
    const int id = GetEventID(name);
    if (id == 0)
        return 0;

    const CSendingLevel level(bus, UnregisterPendingItems);
    int result = 0;
    // The count is asked anew: who joins in a handler is reached, too.
    for (std::size_t i = 0; i < bus.m_Subscriptions.size(); ++i)
    {
        const CSubscription subscription = bus.m_Subscriptions[i]; // a handler may move the list
        if (!subscription.m_Handler || !subscription.m_Object)
            continue;
        if (subscription.m_EventId == id)
            result = (subscription.m_Object->*subscription.m_Handler)(a, b);
        else if (subscription.m_EventId == EVERY_EVENT)
            result = (subscription.m_Object->*subscription.m_Handler)(id, 0);
    }
    return result;
}

int CEvt::SendToAllInstances(const CString& name, LPARAM a, LPARAM b)
{
    const CEventBus& bus = Bus();
    if (bus.m_SendToAll && !name.IsEmpty())
        bus.m_SendToAll(name, a, b, bus.m_SendToAllInfo);
    return Send(name, a, b);
}

void CEvt::RegisterSendToAll(SendToAllFunc sendToAll, void* info)
{
    Bus().m_SendToAll = sendToAll;
    Bus().m_SendToAllInfo = info;
}

int CEvt::GetEventID(const CString& name)
{
    return -static_cast<int>(AddAtomW(name));
}

} // namespace utility
