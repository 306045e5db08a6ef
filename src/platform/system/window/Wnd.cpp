#include "platform/system/window/Wnd.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/MessageScope.h"
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
    return CreateEx(0, className, title, style, CRect(), parent, id);
}

bool CWnd::CreateEx(DWORD exStyle, const char16_t* className, const char16_t* title, DWORD style,
                    const CRect& place, CWnd* parent, UINT id)
{
    if (m_hWnd)
        return false;
    const CMessageScope scope;
    const HWND parentWindow = parent ? parent->m_hWnd : nullptr;
    std::unique_ptr<IWindowPeer> peer =
        GetWindowPeerFactory().Make({className, title, style, parentWindow, id, exStyle, place});
    if (!peer)
        return false;

    m_Peer = peer.get();
    m_hWnd = CWindowTable::Get().Add(this, std::move(peer));
    if (!parentWindow && !(style & WS_CHILD))
        COwnWindows::Get().Add(m_hWnd, className, title);
    WindowProc(WM_CREATE, 0, 0);
    return m_hWnd != nullptr; // its own handler may have ended it
}

bool CWnd::DestroyWindow()
{
    if (!m_hWnd)
        return false;

    const CMessageScope scope;
    const HWND window = m_hWnd;
    WindowProc(WM_DESTROY, 0, 0);
    if (m_hWnd != window)
        return true; // the handler was faster
    m_Peer->Show(false);
    DestroyChildren();
    EndModalLoop(-1);
    m_Peer = nullptr;
    m_hWnd = nullptr;
    COwnWindows::Get().Remove(window);
    CWindowTable::Get().Remove(window);
    return true;
}

/// The last one first, so that each is at the end of the list that it leaves.
void CWnd::DestroyChildren()
{
    CWindowTable& table = CWindowTable::Get();
    while (const HWND child = table.GetLastBelow(m_hWnd))
    {
        table.FindObject(child)->DestroyWindow();
        if (CWnd* survivor = table.FindObject(child)) // it only hides when asked
            survivor->CWnd::DestroyWindow();
    }
}

CWnd* CWnd::FromHandle(HWND window)
{
    return CWindowTable::Get().FindObject(window);
}

IWindowPeer* CWnd::PeerOf(HWND window)
{
    return CWindowTable::Get().FindPeer(window);
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
    PreSubclassWindow();
    return true;
}

HWND CWnd::Detach()
{
    const HWND window = std::exchange(m_hWnd, nullptr);
    m_Peer = nullptr;
    if (window)
        CWindowTable::Get().SetObject(window, nullptr);
    return window;
}

bool CWnd::SubclassDlgItem(UINT id, CWnd* parent)
{
    const CWnd* control = parent ? parent->GetDlgItem(static_cast<int>(id)) : nullptr;
    return control && Attach(control->m_hWnd);
}

CWnd* CWnd::GetParent() const
{
    return m_Peer ? FromHandle(m_Peer->GetParent()) : nullptr;
}

CWnd* CWnd::GetTopLevelParent()
{
    CWnd* window = this;
    while (window->GetStyle() & WS_CHILD)
    {
        CWnd* parent = window->GetParent();
        if (!parent)
            break;
        window = parent;
    }
    return window;
}

} // namespace utility
