#include "dialogs/controls/SplitterControl.h"

#include "dialogs/controls/SplitRange.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/SystemMetrics.h"
#include "platform/ui/drawing/PaintDC.h"

#include <algorithm>
#include <climits>
#include <utility>

namespace utility
{

IMPLEMENT_DYNAMIC(CSplitterControl, CWnd)

namespace
{

constexpr int KEY_STEP = 8; // pixels
constexpr UINT KEEP_ORDER = SWP_NOZORDER | SWP_NOACTIVATE;

} // namespace

bool CSplitterControl::Create(const char16_t* name, DWORD style, const CRect& place, CWnd* parent,
                              UINT id)
{
    return CreateEx(0, u"SplitterControl", name, style | WS_CHILD, place, parent, id);
}

const CMessageMap* CSplitterControl::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {
        MessageRow<&CSplitterControl::OnPaint>(WM_PAINT),
        MessageRow<&CSplitterControl::OnLButtonDown>(WM_LBUTTONDOWN),
        MessageRow<&CSplitterControl::OnMouseMove>(WM_MOUSEMOVE),
        MessageRow<&CSplitterControl::OnLButtonUp>(WM_LBUTTONUP),
        MessageRow<&CSplitterControl::OnCaptureChanged>(WM_CAPTURECHANGED),
        MessageRow<&CSplitterControl::OnKeyDown>(WM_KEYDOWN),
        MessageRow<&CSplitterControl::OnFocusChanged>(WM_SETFOCUS),
        MessageRow<&CSplitterControl::OnFocusChanged>(WM_KILLFOCUS),
        MessageRow<&CSplitterControl::OnGetDlgCode>(WM_GETDLGCODE)};
    static const CMessageMap MAP{CWnd::GetMessageMap(), ROWS};
    return &MAP;
}

void CSplitterControl::SetPanes(std::vector<UINT> first, std::vector<UINT> second)
{
    m_First = std::move(first);
    m_Second = std::move(second);
}

void CSplitterControl::SetMinimums(int first, int second)
{
    m_FirstMinimum = first;
    m_SecondMinimum = second;
}

bool CSplitterControl::IsUpright() const
{
    const CSize size = GetWindowRect().Size();
    return size.cy > size.cx;
}

CRect CSplitterControl::PlaceOf(const CWnd& control) const
{
    CRect place = control.GetWindowRect();
    if (const CWnd* parent = GetParent())
        parent->ScreenToClient(place);
    return place;
}

int CSplitterControl::GetPosition() const
{
    const CRect place = PlaceOf(*this);
    return IsUpright() ? place.left : place.top;
}

std::vector<CWnd*> CSplitterControl::FindPanes(const std::vector<UINT>& ids) const
{
    std::vector<CWnd*> panes;
    const CWnd* parent = GetParent();
    for (const UINT id : ids)
    {
        if (CWnd* pane = parent ? parent->GetDlgItem(static_cast<int>(id)) : nullptr)
            panes.push_back(pane);
    }
    return panes;
}

// From the outermost side of the first controls to that of the second ones; without controls as far
// as the parent goes.
CSplitRange CSplitterControl::GetRange(int& start) const
{
    const CWnd* parent = GetParent();
    const CRect client = parent ? parent->GetClientRect() : CRect();
    const bool isUpright = IsUpright();
    int first = INT_MAX;
    int end = INT_MIN;
    for (const CWnd* pane : FindPanes(m_First))
        first = std::min<int>(first, isUpright ? PlaceOf(*pane).left : PlaceOf(*pane).top);
    for (const CWnd* pane : FindPanes(m_Second))
        end = std::max<int>(end, isUpright ? PlaceOf(*pane).right : PlaceOf(*pane).bottom);
    start = first == INT_MAX ? 0 : first;
    if (end == INT_MIN)
        end = isUpright ? client.right : client.bottom;
    const CSize size = GetWindowRect().Size();
    return {end - start, isUpright ? size.cx : size.cy, m_FirstMinimum, m_SecondMinimum};
}

bool CSplitterControl::MoveTo(int position)
{
    int start = 0;
    const CSplitRange range = GetRange(start);
    const int before = GetPosition();
    const int delta = start + range.Clamp(position - start) - before;
    if (delta == 0)
        return false;

    ResizePanes(m_First, delta, true);
    ResizePanes(m_Second, delta, false);
    CRect place = PlaceOf(*this);
    place.OffsetRect(IsUpright() ? delta : 0, IsUpright() ? 0 : delta);
    SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(), KEEP_ORDER);
    return true;
}

void CSplitterControl::ResizePanes(const std::vector<UINT>& ids, int delta, bool isFirst)
{
    for (CWnd* pane : FindPanes(ids))
    {
        CRect place = PlaceOf(*pane);
        LONG& side = IsUpright() ? (isFirst ? place.right : place.left)
                                 : (isFirst ? place.bottom : place.top);
        side += delta;
        pane->SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(),
                           KEEP_ORDER);
    }
}

void CSplitterControl::MoveByUser(int position)
{
    const int before = GetPosition();
    const CWnd* parent = GetParent();
    if (!MoveTo(position) || !parent)
        return;
    NMSPLITTER note;
    note.hdr.hwndFrom = GetSafeHwnd();
    note.hdr.idFrom = static_cast<WPARAM>(GetDlgCtrlID());
    note.hdr.code = SPN_MOVED;
    note.iDelta = GetPosition() - before;
    parent->SendMessage(WM_NOTIFY, note.hdr.idFrom, reinterpret_cast<LPARAM>(&note));
}

LRESULT CSplitterControl::OnLButtonDown(WPARAM, LPARAM point)
{
    SetFocus();
    SetCapture();
    m_IsDragging = true;
    m_GripOffset = IsUpright() ? GET_X_LPARAM(point) : GET_Y_LPARAM(point);
    m_PositionBefore = GetPosition();
    return 0;
}

LRESULT CSplitterControl::OnMouseMove(WPARAM, LPARAM point)
{
    if (!m_IsDragging)
        return 0;
    const int along = IsUpright() ? GET_X_LPARAM(point) : GET_Y_LPARAM(point);
    MoveByUser(GetPosition() + along - m_GripOffset);
    return 0;
}

LRESULT CSplitterControl::OnLButtonUp(WPARAM, LPARAM)
{
    m_IsDragging = false;
    ReleaseCapture();
    return 0;
}

LRESULT CSplitterControl::OnCaptureChanged(WPARAM, LPARAM)
{
    m_IsDragging = false;
    return 0;
}

LRESULT CSplitterControl::OnKeyDown(WPARAM key, LPARAM lParam)
{
    int start = 0;
    const CSplitRange range = GetRange(start);
    const bool isUpright = IsUpright();
    if (key == VK_ESCAPE && m_IsDragging)
    {
        m_IsDragging = false;
        ReleaseCapture();
        MoveByUser(m_PositionBefore);
    }
    else if (key == (isUpright ? VK_LEFT : VK_UP))
        MoveByUser(GetPosition() - KEY_STEP);
    else if (key == (isUpright ? VK_RIGHT : VK_DOWN))
        MoveByUser(GetPosition() + KEY_STEP);
    else if (key == VK_HOME)
        MoveByUser(start);
    else if (key == VK_END)
        MoveByUser(start + range.m_Length);
    else
        return DefWindowProc(WM_KEYDOWN, key, lParam);
    return 0;
}

LRESULT CSplitterControl::OnFocusChanged(WPARAM, LPARAM)
{
    Invalidate();
    return 0;
}

LRESULT CSplitterControl::OnGetDlgCode(WPARAM, LPARAM)
{
    return DLGC_WANTARROWS;
}

LRESULT CSplitterControl::OnPaint(WPARAM, LPARAM)
{
    CPaintDC context(this);
    const CRect client = GetClientRect();
    context.FillSolidRect(client, GetSysColor(COLOR_BTNFACE));
    if (GetFocus() == this)
        context.DrawFocusRect(client);
    return 0;
}

} // namespace utility
