#pragma once

#include "platform/base/Types.h"

#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace utility
{

class CWnd;
class IWindowPeer;

/// All living windows by handle: who answers for each, its peer and its children.
///
/// Any thread may look up; the main thread changes. Handles are numbers that are never used again.
class CWindowTable
{
public:
    static CWindowTable& Get();

    HWND Add(CWnd* object, std::unique_ptr<IWindowPeer> peer);
    /// Forgets the window and ends its peer.
    void Remove(HWND window);

    CWnd* FindObject(HWND window);
    /// The peer lives as long as the window; null if there is none.
    IWindowPeer* FindPeer(HWND window);
    std::vector<HWND> GetChildren(HWND window);

    /// Gives the window another object, or with null none; the one that it had before.
    CWnd* SetObject(HWND window, CWnd* object);

private:
    struct CEntry
    {
        CWnd* m_Object;
        std::unique_ptr<IWindowPeer> m_Peer;
        std::vector<HWND> m_Children;
    };

    std::mutex m_Lock;
    std::map<HWND, CEntry> m_Windows;
    std::uintptr_t m_LastNumber = 0;
};

} // namespace utility
