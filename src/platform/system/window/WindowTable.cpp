#include "platform/system/window/WindowTable.h"

#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/MessageScope.h"
#include "platform/system/window/WindowPeer.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/system/window/Wnd.h"

#include <algorithm>

namespace utility
{

CMessageScope::CMessageScope()
{
    CWindowTable::Get().BeginScope();
}

CMessageScope::~CMessageScope()
{
    CWindowTable::Get().EndScope();
}

CWindowTable& CWindowTable::Get()
{
    // Never destroyed: a host's own static windows may end later.
    static CWindowTable& table = *new CWindowTable;
    return table;
}

HWND CWindowTable::Add(CWnd* object, std::unique_ptr<IWindowPeer> peer)
{
    IWindowPeer& added = *peer;
    HWND window = nullptr;
    {
        const std::lock_guard lock(m_Lock);
        window = reinterpret_cast<HWND>(++m_LastNumber);
        if (std::vector<HWND>* siblings = FindRow(added))
            siblings->push_back(window);
        m_Windows.emplace(window, CEntry{object, std::move(peer), {}, {}, {}, nullptr});
    }
    added.SetHandle(window);
    return window;
}

void CWindowTable::Remove(HWND window)
{
    Windows::node_type ended; // ends outside the lock: its end may ask about windows
    {
        const std::lock_guard lock(m_Lock);
        ended = m_Windows.extract(window);
        if (ended.empty())
            return;
        if (std::vector<HWND>* siblings = FindRow(*ended.mapped().m_Peer))
            std::erase(*siblings, window);
    }
    EndTimers(ended.mapped());
    ended.mapped().m_Peer->Close();
    if (m_ScopeDepth > 0)
        m_Ended.push_back(std::move(ended));
}

void CWindowTable::EndTimers(const CEntry& entry)
{
    for (const auto& [id, loopTimer] : entry.m_Timers)
        GetMessageLoop().KillTimer(loopTimer);
}

void CWindowTable::EndScope()
{
    if (--m_ScopeDepth > 0)
        return;
    const std::vector<Windows::node_type> ended = std::move(m_Ended);
    m_Ended.clear();
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

CWnd* CWindowTable::SetObject(HWND window, CWnd* object)
{
    const std::lock_guard lock(m_Lock);
    const auto found = m_Windows.find(window);
    if (found == m_Windows.end())
        return nullptr;
    CEntry& entry = found->second;
    if (!object)
    {
        if (!entry.m_StandIn)
            entry.m_StandIn = std::make_unique<CWnd>();
        object = entry.m_StandIn.get();
        object->m_hWnd = window;
        object->m_Peer = entry.m_Peer.get();
    }
    return std::exchange(entry.m_Object, object);
}

/// Under the lock.
std::vector<HWND>* CWindowTable::FindChildren(HWND window)
{
    const auto found = m_Windows.find(window);
    return found == m_Windows.end() ? nullptr : &found->second.m_Children;
}

/// The list in which the window stands. Under the lock.
std::vector<HWND>* CWindowTable::FindRow(const IWindowPeer& peer)
{
    const auto parent = m_Windows.find(peer.GetParent());
    if (parent == m_Windows.end())
        return nullptr;
    return peer.GetStyle() & WS_CHILD ? &parent->second.m_Children : &parent->second.m_Owned;
}

HWND CWindowTable::GetLastBelow(HWND window)
{
    const std::lock_guard lock(m_Lock);
    const auto found = m_Windows.find(window);
    if (found == m_Windows.end())
        return nullptr;
    for (const std::vector<HWND>* row : {&found->second.m_Owned, &found->second.m_Children})
    {
        if (!row->empty())
            return row->back();
    }
    return nullptr;
}

std::vector<HWND> CWindowTable::GetChildren(HWND window)
{
    const std::lock_guard lock(m_Lock);
    const std::vector<HWND>* children = FindChildren(window);
    return children ? *children : std::vector<HWND>();
}

std::vector<HWND> CWindowTable::GetTopLevel()
{
    const std::lock_guard lock(m_Lock);
    std::vector<HWND> windows;
    for (const auto& [window, entry] : m_Windows)
    {
        if (!(entry.m_Peer->GetStyle() & WS_CHILD))
            windows.push_back(window);
    }
    return windows;
}

HWND CWindowTable::GetChild(HWND parent, int index)
{
    const std::lock_guard lock(m_Lock);
    const std::vector<HWND>* children = FindChildren(parent);
    if (!children || children->empty())
        return nullptr;
    if (index < 0)
        return children->back();
    const auto place = static_cast<std::size_t>(index);
    return place < children->size() ? (*children)[place] : nullptr;
}

HWND CWindowTable::GetSibling(HWND parent, HWND child, int step)
{
    const std::lock_guard lock(m_Lock);
    const std::vector<HWND>* children = FindChildren(parent);
    if (!children)
        return nullptr;
    const auto found = std::find(children->begin(), children->end(), child);
    if (found == children->end())
        return nullptr;
    const auto index = found - children->begin() + step;
    return index >= 0 && index < std::ssize(*children)
               ? (*children)[static_cast<std::size_t>(index)]
               : nullptr;
}

void CWindowTable::Reorder(HWND parent, HWND child, HWND behind)
{
    const std::lock_guard lock(m_Lock);
    std::vector<HWND>* children = FindChildren(parent);
    if (!children || child == behind || std::erase(*children, child) == 0)
        return;
    const auto before = std::find(children->begin(), children->end(), behind);
    children->insert(behind && before != children->end() ? before + 1 : children->begin(), child);
}

UINT CWindowTable::SetTimer(HWND window, WPARAM id, UINT loopTimer)
{
    const std::lock_guard lock(m_Lock);
    const auto found = m_Windows.find(window);
    if (found == m_Windows.end())
        return 0;
    std::map<WPARAM, UINT>& timers = found->second.m_Timers;
    if (loopTimer)
        return std::exchange(timers[id], loopTimer);
    const auto timer = timers.find(id);
    return timer == timers.end() ? 0 : timers.extract(timer).mapped();
}

} // namespace utility
