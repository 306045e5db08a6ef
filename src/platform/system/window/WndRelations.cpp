#include "platform/system/window/WindowPeer.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/system/window/WindowTable.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

std::vector<HWND> CWnd::GetTopLevelWindows()
{
    return CWindowTable::Get().GetTopLevel();
}

bool CWnd::IsChild(const CWnd* window) const
{
    while (window && (window->GetStyle() & WS_CHILD))
    {
        window = window->GetParent();
        if (window == this)
            return m_hWnd != nullptr;
    }
    return false;
}

CWnd* CWnd::GetWindow(UINT relation) const
{
    if (!m_Peer)
        return nullptr;
    CWindowTable& table = CWindowTable::Get();
    const HWND parent = m_Peer->GetParent();
    switch (relation)
    {
    case GW_HWNDFIRST:
        return FromHandle(table.GetChild(parent, 0));
    case GW_HWNDLAST:
        return FromHandle(table.GetChild(parent, -1));
    case GW_HWNDNEXT:
        return FromHandle(table.GetSibling(parent, m_hWnd, 1));
    case GW_HWNDPREV:
        return FromHandle(table.GetSibling(parent, m_hWnd, -1));
    case GW_OWNER:
        return GetStyle() & WS_CHILD ? nullptr : GetParent();
    case GW_CHILD:
        return FromHandle(table.GetChild(m_hWnd, 0));
    default:
        return nullptr;
    }
}

CWnd* CWnd::GetTopWindow() const
{
    return GetWindow(GW_CHILD);
}

CWnd* CWnd::GetNextWindow(UINT relation) const
{
    return GetWindow(relation);
}

std::vector<CWnd*> CWnd::GetChildren() const
{
    std::vector<CWnd*> children;
    for (const HWND child : CWindowTable::Get().GetChildren(m_hWnd))
        children.push_back(FromHandle(child));
    return children;
}

CWnd* CWnd::GetDlgItem(int id) const
{
    CWindowTable& table = CWindowTable::Get();
    for (const HWND child : table.GetChildren(m_hWnd))
    {
        if (table.FindPeer(child)->GetId() == static_cast<UINT>(id))
            return FromHandle(child);
    }
    return nullptr;
}

/// Level by level: windows may be nested as deep as a host likes.
CWnd* CWnd::GetDescendantWindow(int id) const
{
    std::vector<CWnd*> level = GetChildren();
    while (!level.empty())
    {
        std::vector<CWnd*> next;
        for (CWnd* window : level)
        {
            if (window->GetDlgCtrlID() == id)
                return window;
            const std::vector<CWnd*> children = window->GetChildren();
            next.insert(next.end(), children.begin(), children.end());
        }
        level = std::move(next);
    }
    return nullptr;
}

int CWnd::GetDlgCtrlID() const
{
    return m_Peer ? static_cast<int>(m_Peer->GetId()) : 0;
}

} // namespace utility
