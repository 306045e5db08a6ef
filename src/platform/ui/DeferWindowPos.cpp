#include "platform/ui/DeferWindowPos.h"

#include "platform/base/Rect.h"
#include "platform/system/window/MessageScope.h"
#include "platform/system/window/WindowPeer.h"
#include "platform/system/window/Wnd.h"

#include <map>
#include <vector>

namespace utility
{

namespace
{

struct CDeferredMove
{
    HWND m_Window;
    HWND m_Behind;
    CRect m_Place;
    UINT m_Flags;
};

using Blocks = std::map<HDWP, std::vector<CDeferredMove>>;

/// The blocks that are open, by numbers that are never used again.
Blocks& OpenBlocks()
{
    static Blocks blocks;
    return blocks;
}

void Redraw(const std::vector<CDeferredMove>& moves, bool on)
{
    HWND parent = nullptr; // nearly always one for all
    for (const CDeferredMove& move : moves)
    {
        const IWindowPeer* peer = CWnd::PeerOf(move.m_Window);
        if (!peer || peer->GetParent() == parent)
            continue;
        parent = peer->GetParent();
        if (IWindowPeer* around = CWnd::PeerOf(parent))
            around->SetRedraw(on);
    }
}

} // namespace

HDWP BeginDeferWindowPos(int count)
{
    static std::uintptr_t lastNumber = 0;
    const HDWP moves = reinterpret_cast<HDWP>(++lastNumber);
    OpenBlocks()[moves].reserve(static_cast<std::size_t>(count > 0 ? count : 0));
    return moves;
}

HDWP DeferWindowPos(HDWP moves, const CWnd& window, const CWnd* behind, int x, int y, int width,
                    int height, UINT flags)
{
    const auto block = OpenBlocks().find(moves);
    if (block == OpenBlocks().end() || !window.GetSafeHwnd())
        return nullptr;
    block->second.push_back({window.GetSafeHwnd(), behind ? behind->GetSafeHwnd() : nullptr,
                             CRect(CPoint(x, y), CSize(width, height)), flags});
    return moves;
}

bool EndDeferWindowPos(HDWP moves)
{
    const auto ended = OpenBlocks().extract(moves);
    if (ended.empty())
        return false;
    const CMessageScope scope;
    Redraw(ended.mapped(), false);
    for (const CDeferredMove& move : ended.mapped())
    {
        if (CWnd* window = CWnd::FromHandle(move.m_Window))
            window->SetWindowPos(CWnd::FromHandle(move.m_Behind), move.m_Place.left,
                                 move.m_Place.top, move.m_Place.Width(), move.m_Place.Height(),
                                 move.m_Flags);
    }
    Redraw(ended.mapped(), true);
    return true;
}

} // namespace utility
