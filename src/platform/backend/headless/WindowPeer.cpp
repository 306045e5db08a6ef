#include "platform/backend/headless/WindowPeer.h"

#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowTable.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

namespace
{

// What a window system would know of the windows of this process.
constinit HWND focused = nullptr;
constinit HWND active = nullptr;
constinit HWND capturing = nullptr;

} // namespace

std::unique_ptr<IWindowPeerFactory> MakeHeadlessWindowPeerFactory()
{
    return std::make_unique<CHeadlessWindowPeerFactory>();
}

std::unique_ptr<IWindowPeer> CHeadlessWindowPeerFactory::Make(const CWindowRequest& request)
{
    return std::make_unique<CHeadlessWindowPeer>(request);
}

HWND CHeadlessWindowPeerFactory::GetFocus() const
{
    return focused;
}

HWND CHeadlessWindowPeerFactory::GetActive() const
{
    return active;
}

HWND CHeadlessWindowPeerFactory::GetCapture() const
{
    return capturing;
}

CHeadlessWindowPeer::CHeadlessWindowPeer(const CWindowRequest& request)
    : m_Request(request),
      m_IsVisible((request.m_Style & WS_VISIBLE) != 0),
      m_IsEnabled((request.m_Style & WS_DISABLED) == 0)
{
}

void CHeadlessWindowPeer::Close()
{
    m_IsVisible = false;
    for (HWND* place : {&focused, &active, &capturing})
    {
        if (*place == m_Window)
            *place = nullptr;
    }
}

bool CHeadlessWindowPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM, LRESULT& result)
{
    switch (message)
    {
    case WM_SETFONT:
        m_Font = wParam;
        return true;
    case WM_GETFONT:
        result = static_cast<LRESULT>(m_Font);
        return true;
    default:
        return false;
    }
}

DWORD CHeadlessWindowPeer::GetStyle() const
{
    const DWORD others = m_Request.m_Style & ~(WS_VISIBLE | WS_DISABLED);
    return others | (m_IsVisible ? WS_VISIBLE : 0) | (m_IsEnabled ? 0 : WS_DISABLED);
}

void CHeadlessWindowPeer::SetState(EWindowState state)
{
    if (std::exchange(m_State, state) != state)
        TellSize();
}

void CHeadlessWindowPeer::BringToTop()
{
    active = m_Window; // the order of windows is kept by who lists them
}

void CHeadlessWindowPeer::TakeFocus()
{
    const HWND previous = std::exchange(focused, m_Window);
    if (previous == m_Window)
        return;
    if (CWnd* loser = CWnd::FromHandle(previous))
        loser->SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(m_Window));
    Send(WM_SETFOCUS, reinterpret_cast<WPARAM>(previous));
}

void CHeadlessWindowPeer::SetCapture(bool captured)
{
    if (captured)
        capturing = m_Window;
    else if (capturing == m_Window)
        capturing = nullptr;
}

void CHeadlessWindowPeer::Move(const CRect& place)
{
    const CRect before = std::exchange(m_Request.m_Place, place);
    if (before.TopLeft() != place.TopLeft())
        Send(WM_MOVE, 0, MAKELPARAM(place.left, place.top));
    if (before.Size() != place.Size())
        TellSize();
}

CPoint CHeadlessWindowPeer::GetClientOrigin() const
{
    CPoint origin = m_Request.m_Place.TopLeft();
    if (m_Request.m_Style & WS_CHILD)
    {
        if (const IWindowPeer* parent = CWindowTable::Get().FindPeer(m_Request.m_Parent))
            origin += parent->GetClientOrigin();
    }
    return origin;
}

void CHeadlessWindowPeer::TellSize()
{
    constexpr WPARAM KINDS[] = {SIZE_RESTORED, SIZE_MINIMIZED, SIZE_MAXIMIZED};
    const CSize size = GetClientSize();
    Send(WM_SIZE, KINDS[static_cast<int>(m_State)], MAKELPARAM(size.cx, size.cy));
}

void CHeadlessWindowPeer::Send(UINT message, WPARAM wParam, LPARAM lParam) const
{
    if (CWnd* window = CWnd::FromHandle(m_Window))
        window->SendMessage(message, wParam, lParam);
}

} // namespace utility
