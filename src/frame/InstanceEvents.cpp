#include "frame/InstanceEvents.h"

#include "frame/Evt.h"
#include "platform/system/window/LiveWindows.h"

namespace utility
{

namespace
{

int SendToOthers(CString name, LPARAM a, LPARAM b, void*)
{
    return SendLiveEvent(name, a, b);
}

/// Not on to other instances: the sender has told each of them.
void SendHere(const CString& name, LPARAM a, LPARAM b)
{
    CEvt::Send(name, a, b);
}

} // namespace

void InstallInstanceEvents()
{
    SetLiveEventHandler(SendHere);
    CEvt::RegisterSendToAll(SendToOthers, nullptr);
}

void RemoveInstanceEvents()
{
    CEvt::RegisterSendToAll(nullptr, nullptr);
    SetLiveEventHandler(nullptr);
}

} // namespace utility
