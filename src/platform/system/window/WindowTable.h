#pragma once

#include "platform/base/Types.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace utility
{

class CWnd;
class IWindowPeer;

/// All living windows by handle: who answers for each, its peer, children and timers.
///
/// Any thread may look up; the main thread changes. Handles are numbers that are never used again.
class CWindowTable
{
public:
    static CWindowTable& Get();

    // Life
    HWND Add(CWnd* object, std::unique_ptr<IWindowPeer> peer);
    /// Forgets the window; what stood behind it ends with the outermost message scope.
    void Remove(HWND window);

    CWnd* FindObject(HWND window);
    /// The peer lives as long as the window; null if there is none.
    IWindowPeer* FindPeer(HWND window);
    /// Gives the window another object; the one that it had before. With null a stand-in answers.
    CWnd* SetObject(HWND window, CWnd* object);

    // Order: the first child is the topmost one
    /// Any child or owned window, the newest first; null if there is none.
    HWND GetLastBelow(HWND window);
    std::vector<HWND> GetChildren(HWND window);
    std::vector<HWND> GetTopLevel();
    /// The child by its place in the order, the last one for -1; null if there is none.
    HWND GetChild(HWND parent, int index);
    /// The child that stands `step` places behind `child`; null if there is none.
    HWND GetSibling(HWND parent, HWND child, int step);
    /// Puts the child behind another one, before all for null.
    void Reorder(HWND parent, HWND child, HWND behind);

    // Timers of the loop, by the window's own numbers
    /// Keeps the loop's number; the one that was kept there before, or 0.
    UINT SetTimer(HWND window, WPARAM id, UINT loopTimer);

    // Message scopes
    void BeginScope() { ++m_ScopeDepth; }
    void EndScope();

private:
    struct CEntry
    {
        CWnd* m_Object;
        std::unique_ptr<IWindowPeer> m_Peer;
        std::vector<HWND> m_Children;
        std::vector<HWND> m_Owned; // top-level windows that stand over this one
        std::map<WPARAM, UINT> m_Timers;
        std::unique_ptr<CWnd> m_StandIn; // answers while no other object does; made when needed
    };
    using Windows = std::map<HWND, CEntry>;

    void EndTimers(const CEntry& entry);
    std::vector<HWND>* FindChildren(HWND window);
    std::vector<HWND>* FindRow(const IWindowPeer& peer);

    std::mutex m_Lock;
    Windows m_Windows;
    std::uintptr_t m_LastNumber = 0;

    // Of the main thread alone
    int m_ScopeDepth = 0;
    std::vector<Windows::node_type> m_Ended; // while scopes are open
};

} // namespace utility
