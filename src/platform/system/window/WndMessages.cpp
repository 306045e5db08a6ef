#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    LRESULT result = 0;
    const auto deliver = [window = m_hWnd, message, wParam, lParam, &result]
    {
        if (CWnd* target = FromHandle(window))
            result = target->WindowProc(message, wParam, lParam);
    };
    IMessageLoop& loop = GetMessageLoop();
    if (loop.IsMainThread())
        deliver();
    else
        loop.Send(deliver);
    return result;
}

bool CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    const HWND window = m_hWnd;
    return FromHandle(window) &&
           GetMessageLoop().Post([window, message, wParam, lParam]
                                 { DeliverPosted(window, message, wParam, lParam); });
}

void CWnd::DeliverPosted(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* target = FromHandle(window);
    if (!target || target->PreTranslateMessage(message, wParam, lParam))
        return;
    // Asked anew: what saw the message first may have ended the window.
    target = FromHandle(window);
    if (target)
        target->WindowProc(message, wParam, lParam);
}

bool CWnd::PreTranslateMessage(UINT, WPARAM, LPARAM)
{
    return false;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (message == WM_COMMAND && OnCommand(wParam, lParam))
        return 1;
    if (message == WM_NOTIFY && OnNotify(wParam, lParam, &result))
        return result;
    if (message != WM_COMMAND && message != WM_NOTIFY)
    {
        if (const CMessageRow* row = FindRow(message, 0, 0))
            return row->m_Handler(*this, wParam, lParam);
    }
    return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM, LPARAM)
{
    if (message == WM_CLOSE)
        DestroyWindow();
    return 0;
}

bool CWnd::OnCommand(WPARAM wParam, LPARAM)
{
    // The id stands in the low word, the code of the control that sends it in the next.
    constexpr WPARAM WORD_MASK = 0xFFFF;
    return OnCmdMsg(static_cast<UINT>(wParam & WORD_MASK),
                    static_cast<UINT>(wParam >> 16 & WORD_MASK), nullptr, nullptr);
}

bool CWnd::OnNotify(WPARAM, LPARAM, LRESULT*)
{
    return false;
}

} // namespace utility
