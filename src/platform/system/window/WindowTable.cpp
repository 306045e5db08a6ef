#include "platform/system/window/WindowTable.h"

#include "platform/system/window/WindowPeer.h"

namespace utility
{

CWindowTable& CWindowTable::Get()
{
    // Never destroyed: a host's own static windows may end later.
    static CWindowTable& table = *new CWindowTable;
    return table;
}

HWND CWindowTable::Add(CWnd* object, std::unique_ptr<IWindowPeer> peer)
{
    const std::lock_guard lock(m_Lock);
    const HWND window = reinterpret_cast<HWND>(++m_LastNumber);
    const auto parent = m_Windows.find(peer->GetParent());
    if (parent != m_Windows.end())
        parent->second.m_Children.push_back(window);
    m_Windows.emplace(window, CEntry{object, std::move(peer), {}});
    return window;
}

void CWindowTable::Remove(HWND window)
{
    std::unique_ptr<IWindowPeer> peer; // ends outside the lock: its end may ask about windows
    const std::lock_guard lock(m_Lock);
    const auto found = m_Windows.find(window);
    if (found == m_Windows.end())
        return;

    peer = std::move(found->second.m_Peer);
    m_Windows.erase(found);
    const auto parent = m_Windows.find(peer->GetParent());
    if (parent != m_Windows.end())
        std::erase(parent->second.m_Children, window);
}

CWnd* CWindowTable::FindObject(HWND window)
{
    const std::lock_guard lock(m_Lock);
    const auto found = m_Windows.find(window);
    return found == m_Windows.end() ? nullptr : found->second.m_Object;
}

IWindowPeer* CWindowTable::FindPeer(HWND window)
{
    const std::lock_guard lock(m_Lock);
    const auto found = m_Windows.find(window);
    return found == m_Windows.end() ? nullptr : found->second.m_Peer.get();
}

std::vector<HWND> CWindowTable::GetChildren(HWND window)
{
    const std::lock_guard lock(m_Lock);
    const auto found = m_Windows.find(window);
    return found == m_Windows.end() ? std::vector<HWND>() : found->second.m_Children;
}

CWnd* CWindowTable::SetObject(HWND window, CWnd* object)
{
    const std::lock_guard lock(m_Lock);
    const auto found = m_Windows.find(window);
    return found == m_Windows.end() ? nullptr : std::exchange(found->second.m_Object, object);
}

} // namespace utility
