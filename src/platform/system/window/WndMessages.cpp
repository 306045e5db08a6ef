#include "platform/base/String.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/MessageScope.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowPeer.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    LRESULT result = 0;
    const auto deliver = [window = m_hWnd, message, wParam, lParam, &result]
    {
        const CMessageScope scope;
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
    const CMessageScope scope;
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

bool CWnd::WalkPreTranslateTree(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const CMessageScope scope;
    while (CWnd* target = FromHandle(window))
    {
        if (target->PreTranslateMessage(message, wParam, lParam))
            return true;
        const CWnd* parent = target->GetStyle() & WS_CHILD ? target->GetParent() : nullptr;
        window = parent ? parent->m_hWnd : nullptr;
    }
    return false;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    const HWND window = m_hWnd;
    if (ReflectToSender(message, wParam, lParam, result))
        return result;
    // The control may have ended its parent, even this object.
    if (window && FromHandle(window) != this)
        return 0;
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

bool CWnd::ReflectToSender(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    HWND sender = nullptr;
    if (message == WM_COMMAND)
        sender = reinterpret_cast<HWND>(lParam);
    else if (message == WM_NOTIFY && lParam)
        sender = reinterpret_cast<const NMHDR*>(lParam)->hwndFrom;
    CWnd* control = sender ? FromHandle(sender) : nullptr;
    return control && control->OnChildNotify(message, wParam, lParam, &result);
}

bool CWnd::OnChildNotify(UINT, WPARAM, LPARAM, LRESULT*)
{
    return false;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (!m_Peer || m_Peer->HandleMessage(message, wParam, lParam, result))
        return result;
    switch (message)
    {
    case WM_CLOSE:
        DestroyWindow();
        return 0;
    case WM_SYSCOMMAND:
        return OnSysCommand(wParam);
    case WM_SETTEXT:
        SetWindowText(reinterpret_cast<const char16_t*>(lParam));
        return TRUE;
    case WM_GETTEXT:
        return CopyText(wParam, lParam);
    case WM_GETTEXTLENGTH:
        return GetWindowTextLength();
    case WM_SETREDRAW:
        m_Peer->SetRedraw(wParam != 0);
        return 0;
    default:
        return 0;
    }
}

LRESULT CWnd::OnSysCommand(WPARAM command)
{
    switch (command)
    {
    case SC_MINIMIZE:
        ShowWindow(SW_MINIMIZE);
        break;
    case SC_MAXIMIZE:
        ShowWindow(SW_MAXIMIZE);
        break;
    case SC_RESTORE:
        ShowWindow(SW_RESTORE);
        break;
    case SC_CLOSE:
        SendMessage(WM_CLOSE);
        break;
    default:
        break;
    }
    return 0;
}

/// As much as the buffer takes with a zero behind; the count of units without it.
LRESULT CWnd::CopyText(WPARAM capacity, LPARAM buffer) const
{
    auto* target = reinterpret_cast<char16_t*>(buffer);
    if (!target || capacity == 0)
        return 0;
    const CString text = GetWindowText();
    const std::size_t count = std::min(static_cast<std::size_t>(text.GetLength()),
                                       static_cast<std::size_t>(capacity) - 1);
    std::copy_n(text.GetString(), count, target);
    target[count] = u'\0';
    return static_cast<LRESULT>(count);
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
