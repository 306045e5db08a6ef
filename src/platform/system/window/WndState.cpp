#include "platform/base/String.h"
#include "platform/system/window/MessageScope.h"
#include "platform/system/window/OwnWindows.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowPeer.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

namespace
{

/// The state that an SW_... command asks for, if any.
bool FindState(int command, EWindowState& state)
{
    switch (command)
    {
    case SW_SHOWNORMAL:
    case SW_RESTORE:
        state = EWindowState::Normal;
        return true;
    case SW_MAXIMIZE:
        state = EWindowState::Maximised;
        return true;
    case SW_MINIMIZE:
    case SW_SHOWMINIMIZED:
        state = EWindowState::Minimised;
        return true;
    default:
        return false;
    }
}

} // namespace

// Text and style

void CWnd::SetWindowText(const CString& text)
{
    if (!m_Peer)
        return;
    m_Peer->SetText(text);
    COwnWindows::Get().SetTitle(m_hWnd, text);
}

CString CWnd::GetWindowText() const
{
    return m_Peer ? m_Peer->GetText() : CString();
}

CString CWnd::GetWindowTextW() const
{
    return GetWindowText();
}

void CWnd::GetWindowText(CString& text) const
{
    text = GetWindowText();
}

int CWnd::GetWindowTextLength() const
{
    return GetWindowText().GetLength();
}

void CWnd::SetAccessibleName(const CString& name)
{
    if (m_Peer)
        m_Peer->SetAccessibleName(name);
}

CString CWnd::GetAccessibleName() const
{
    return m_Peer ? m_Peer->GetAccessibleName() : CString();
}

CString CWnd::GetClassName() const
{
    return m_Peer ? m_Peer->GetClassName() : CString();
}

DWORD CWnd::GetStyle() const
{
    return m_Peer ? m_Peer->GetStyle() : 0;
}

DWORD CWnd::GetExStyle() const
{
    return m_Peer ? m_Peer->GetExStyle() : 0;
}

bool CWnd::ModifyStyle(DWORD remove, DWORD add)
{
    const DWORD before = GetStyle();
    const DWORD after = (before & ~remove) | add;
    if (!m_Peer || after == before)
        return false;
    m_Peer->SetStyle(after);
    return true;
}

bool CWnd::ModifyStyleEx(DWORD remove, DWORD add)
{
    const DWORD before = GetExStyle();
    const DWORD after = (before & ~remove) | add;
    if (!m_Peer || after == before)
        return false;
    m_Peer->SetExStyle(after);
    return true;
}

void CWnd::SetFont(HFONT font, bool redraw)
{
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw);
}

HFONT CWnd::GetFont() const
{
    return reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
}

// Showing

bool CWnd::ShowWindow(int command)
{
    if (!m_Peer)
        return false;
    const CMessageScope scope;
    const HWND window = m_hWnd;
    const bool wasVisible = m_Peer->IsVisible();
    const bool isShown = command != SW_HIDE;
    if (isShown != wasVisible)
        WindowProc(WM_SHOWWINDOW, isShown, 0);
    if (m_hWnd != window)
        return wasVisible; // its handler has ended it
    EWindowState state{};
    if (FindState(command, state))
        m_Peer->SetState(state);
    if (m_hWnd == window)
        m_Peer->Show(isShown);
    return wasVisible;
}

bool CWnd::IsWindowVisible() const
{
    const CWnd* window = this;
    while (window->m_Peer && window->m_Peer->IsVisible())
    {
        if (!(window->GetStyle() & WS_CHILD))
            return true;
        const CWnd* parent = window->GetParent();
        if (!parent)
            return true;
        window = parent;
    }
    return false;
}

bool CWnd::IsZoomed() const
{
    return m_Peer && m_Peer->GetState() == EWindowState::Maximised;
}

bool CWnd::IsIconic() const
{
    return m_Peer && m_Peer->GetState() == EWindowState::Minimised;
}

void CWnd::GetWindowPlacement(WINDOWPLACEMENT& placement) const
{
    if (!m_Peer)
        return;
    placement.length = sizeof placement;
    placement.showCmd = SW_SHOWNORMAL;
    if (IsZoomed())
        placement.showCmd = SW_SHOWMAXIMIZED;
    if (IsIconic())
        placement.showCmd = SW_SHOWMINIMIZED;
    placement.rcNormalPosition = m_Peer->GetNormalPlace();
}

bool CWnd::SetForegroundWindow()
{
    if (!m_Peer)
        return false;
    m_Peer->BringToTop();
    COwnWindows::Get().BringToTop(m_hWnd);
    return true;
}

CWnd* CWnd::SetActiveWindow()
{
    CWnd* previous = GetActiveWindow();
    SetForegroundWindow();
    return previous;
}

CWnd* CWnd::GetActiveWindow()
{
    return FromHandle(GetWindowPeerFactory().GetActive());
}

bool CWnd::EnableWindow(bool enable)
{
    if (!m_Peer)
        return false;
    const bool wasEnabled = m_Peer->IsEnabled();
    m_Peer->Enable(enable);
    return wasEnabled;
}

bool CWnd::IsWindowEnabled() const
{
    return m_Peer && m_Peer->IsEnabled();
}

CWnd* CWnd::SetFocus()
{
    CWnd* previous = GetFocus();
    const CMessageScope scope;
    if (m_Peer)
        m_Peer->TakeFocus();
    return previous;
}

CWnd* CWnd::GetFocus()
{
    return FromHandle(GetWindowPeerFactory().GetFocus());
}

CWnd* CWnd::SetCapture()
{
    CWnd* previous = GetCapture();
    if (m_Peer)
        m_Peer->SetCapture(true);
    return previous;
}

CWnd* CWnd::GetCapture()
{
    return FromHandle(GetWindowPeerFactory().GetCapture());
}

void CWnd::ReleaseCapture()
{
    if (CWnd* holder = GetCapture())
        holder->m_Peer->SetCapture(false);
}

} // namespace utility
