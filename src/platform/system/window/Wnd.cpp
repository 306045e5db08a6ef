#include "platform/system/window/Wnd.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/OwnWindows.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowPeer.h"
#include "platform/system/window/WindowTable.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

CWnd::CWnd() = default;

CWnd::~CWnd()
{
    CWnd::DestroyWindow();
}

bool CWnd::Create(const char16_t* className, const char16_t* title, DWORD style, CWnd* parent,
                  UINT id)
{
    if (m_hWnd)
        return false;
    const HWND parentWindow = parent ? parent->m_hWnd : nullptr;
    std::unique_ptr<IWindowPeer> peer =
        GetWindowPeerFactory().Make({className, title, style, parentWindow, id});
    if (!peer)
        return false;

    m_Peer = peer.get();
    m_hWnd = CWindowTable::Get().Add(this, std::move(peer));
    if (!parentWindow && !(style & WS_CHILD))
        COwnWindows::Get().Add(m_hWnd, className, title);
    return true;
}

bool CWnd::DestroyWindow()
{
    if (!m_hWnd)
        return false;

    WindowProc(WM_DESTROY, 0, 0);
    CWindowTable& table = CWindowTable::Get();
    for (const HWND child : table.GetChildren(m_hWnd))
    {
        if (CWnd* object = table.FindObject(child))
            object->DestroyWindow();
        else
            table.Remove(child);
    }
    m_Peer = nullptr;
    COwnWindows::Get().Remove(m_hWnd);
    table.Remove(std::exchange(m_hWnd, nullptr));
    return true;
}

CWnd* CWnd::FromHandle(HWND window)
{
    return CWindowTable::Get().FindObject(window);
}

bool CWnd::Attach(HWND window)
{
    CWindowTable& table = CWindowTable::Get();
    IWindowPeer* peer = table.FindPeer(window);
    if (m_hWnd || !peer)
        return false;

    if (CWnd* previous = table.SetObject(window, this))
    {
        previous->m_hWnd = nullptr;
        previous->m_Peer = nullptr;
    }
    m_hWnd = window;
    m_Peer = peer;
    return true;
}

HWND CWnd::Detach()
{
    if (m_hWnd)
        CWindowTable::Get().SetObject(m_hWnd, nullptr);
    m_Peer = nullptr;
    return std::exchange(m_hWnd, nullptr);
}

CWnd* CWnd::GetParent() const
{
    return m_Peer ? FromHandle(m_Peer->GetParent()) : nullptr;
}

CWnd* CWnd::GetTopLevelParent()
{
    CWnd* window = this;
    while (window->m_Peer && (window->m_Peer->GetStyle() & WS_CHILD))
    {
        CWnd* parent = window->GetParent();
        if (!parent)
            break;
        window = parent;
    }
    return window;
}

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

bool CWnd::ShowWindow(int command)
{
    if (!m_Peer)
        return false;
    const bool wasVisible = m_Peer->IsVisible();
    if (command == SW_MAXIMIZE || command == SW_SHOWNORMAL || command == SW_RESTORE)
        m_Peer->Maximise(command == SW_MAXIMIZE);
    m_Peer->Show(command != SW_HIDE);
    return wasVisible;
}

bool CWnd::IsWindowVisible() const
{
    return m_Peer && m_Peer->IsVisible();
}

bool CWnd::IsZoomed() const
{
    return m_Peer && m_Peer->IsMaximised();
}

bool CWnd::SetForegroundWindow()
{
    if (!m_Peer)
        return false;
    m_Peer->BringToTop();
    COwnWindows::Get().BringToTop(m_hWnd);
    return true;
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

void CWnd::MoveWindow(const CRect& place)
{
    if (m_Peer)
        m_Peer->Move(place);
}

CRect CWnd::GetWindowRect() const
{
    return m_Peer ? m_Peer->GetPlace() : CRect();
}

} // namespace utility
