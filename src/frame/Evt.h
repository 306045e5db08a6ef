#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// Named events: who derives from this class subscribes member functions, anybody sends by name.
///
///     class CPartView : public CEvt
///     {
///         CPartView() { Register(u"Part.Changed", this, &CPartView::OnPartChanged); }
///         unsigned char OnPartChanged(LPARAM part, LPARAM);
///     };
///     CEvt::Send(u"Part.Changed", reinterpret_cast<LPARAM>(&part), 0);
///
/// Names are case-blind; an empty one registers, removes and sends nothing. An object's
/// subscriptions end with it. While an event is sent, listeners may subscribe, remove themselves or
/// others, end, and send in turn: who is removed is not called again, who joins is reached by the
/// sends under way. A listener that throws keeps the later ones from being called, and the
/// exception passes on to the sender. User-interface thread.
class UTILITY_CORE_API CEvt
{
public:
    /// Values are pointer-wide: within the process they may carry objects.
    using Handler = unsigned char (CEvt::*)(LPARAM a, LPARAM b);
    /// Carries an event to other instances of the program; values are bare numbers there.
    using SendToAllFunc = int (*)(CString name, LPARAM a, LPARAM b, void* info);

    // Subscribing
    /// To every event; the handler gets the event's id and 0 instead of the values.
    static void Register(CEvt* object, Handler handler);
    static void Register(const CString& name, CEvt* object, Handler handler);
    /// The same for a handler of a derived class, which needs no cast then.
    template <typename TListener>
    static void Register(TListener* object, unsigned char (TListener::*handler)(LPARAM, LPARAM))
    {
        Register(static_cast<CEvt*>(object), static_cast<Handler>(handler));
    }
    template <typename TListener>
    static void Register(const CString& name, TListener* object,
                         unsigned char (TListener::*handler)(LPARAM, LPARAM))
    {
        Register(name, static_cast<CEvt*>(object), static_cast<Handler>(handler));
    }

    static void Unregister(const CString& name, CEvt* object);
    static void UnregisterAll(CEvt* object);
    /// Of every object.
    static void UnregisterAll();

    // Sending: the answer of the listener that was called last, 0 if there is none
    static int Send(const CString& name, LPARAM a, LPARAM b);
    /// First by the route to other instances, if one is installed, then here.
    static int SendToAllInstances(const CString& name, LPARAM a, LPARAM b);
    /// Installs that route, or with null takes it away; `info` is handed to it each time.
    static void RegisterSendToAll(SendToAllFunc sendToAll, void* info);

    /// The same for every spelling of a name in this process; below 0, and 0 for the empty name.
    static int GetEventID(const CString& name);

protected:
    CEvt() = default;
    ~CEvt() { UnregisterAll(this); }
    CEvt(const CEvt&) = default; // subscriptions belong to the object, not to its value
    CEvt& operator=(const CEvt&) = default;

private:
    static void RemoveRecords(const CEvt* object, int id);
    static void UnregisterPendingItems();
};

} // namespace utility
