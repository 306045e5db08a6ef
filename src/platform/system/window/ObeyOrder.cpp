#include "platform/system/window/ObeyOrder.h"

#include "platform/base/Atoms.h"
#include "platform/system/window/LiveWindows.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowOrder.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

namespace
{

void ObeyOnWindow(const CWindowOrder& order, CWnd& window)
{
    switch (order.m_Kind)
    {
    case EWindowOrder::Top:
        window.SetForegroundWindow();
        break;
    case EWindowOrder::Maximise:
        window.ShowWindow(SW_MAXIMIZE);
        break;
    case EWindowOrder::Move:
        window.MoveWindow(order.m_Place);
        break;
    case EWindowOrder::Close:
        window.PostMessage(WM_CLOSE);
        break;
    case EWindowOrder::Message:
        // A name that nothing here has registered has no handler, and is not to be kept either.
        if (const UINT message = FindWindowMessage(order.m_Name))
            window.PostMessage(message, order.m_WParam, order.m_LParam);
        break;
    case EWindowOrder::Event:
        break;
    }
}

void Obey(const CWindowOrder& order)
{
    if (order.m_Kind == EWindowOrder::Event)
    {
        if (const LiveEventHandler handler = GetLiveEventHandler())
            handler(order.m_Name, static_cast<LPARAM>(order.m_WParam), order.m_LParam);
        return;
    }
    CWnd* window = CWnd::FromHandle(reinterpret_cast<HWND>(std::uintptr_t{order.m_Window}));
    if (window && window->GetTopLevelParent() == window)
        ObeyOnWindow(order, *window);
}

} // namespace

void ObeyOrderLater(std::string_view text, std::shared_ptr<void> ticket)
{
    CWindowOrder order;
    if (ParseWindowOrder(text, order))
        GetMessageLoop().Post([order = std::move(order), ticket = std::move(ticket)]
                              { Obey(order); });
}

} // namespace utility
