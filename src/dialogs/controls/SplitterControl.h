#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/Wnd.h"

#include <vector>

namespace utility
{

struct CSplitRange;

/// Code of WM_NOTIFY to the parent: the user has moved the bar, and the controls have followed.
constexpr int SPN_MOVED = -20;

/// With SPN_MOVED.
struct NMSPLITTER
{
    NMHDR hdr;
    int iDelta = 0; // pixels to the right or downwards
};

/// A movable bar inside a dialog: the controls of its two sides grow and shrink with it.
///
/// A bar that is higher than wide stands between left and right, any other between top and bottom.
/// It moves by the pointer and, once it has the focus, by arrow keys, Home and End; Escape puts a
/// bar that is being dragged back. How far it goes is told by the outer sides of the controls and
/// their minimums. User-interface thread.
class UTILITY_UI_API CSplitterControl : public CWnd
{
    DECLARE_DYNAMIC(CSplitterControl)

public:
    /// The text, "Splitter" or a better one, is what screen readers say.
    bool Create(const char16_t* name, DWORD style, const CRect& place, CWnd* parent, UINT id);

    /// The siblings that end at the bar, and those that begin behind it, by id; one that is missing
    /// does not count.
    void SetPanes(std::vector<UINT> first, std::vector<UINT> second);
    /// The least width or height of either side's controls.
    void SetMinimums(int first, int second);

    /// The left or top side of the bar in the parent.
    int GetPosition() const;
    /// As near as it may; false if it stands there already. The parent is not told.
    bool MoveTo(int position);

protected:
    const CMessageMap* GetMessageMap() const override;

private:
    LRESULT OnPaint(WPARAM, LPARAM);
    LRESULT OnLButtonDown(WPARAM keys, LPARAM point);
    LRESULT OnMouseMove(WPARAM keys, LPARAM point);
    LRESULT OnLButtonUp(WPARAM keys, LPARAM point);
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM window);
    LRESULT OnKeyDown(WPARAM key, LPARAM lParam);
    LRESULT OnFocusChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetDlgCode(WPARAM, LPARAM);

    bool IsUpright() const;
    std::vector<CWnd*> FindPanes(const std::vector<UINT>& ids) const;
    CSplitRange GetRange(int& start) const;
    void MoveByUser(int position);
    void ResizePanes(const std::vector<UINT>& ids, int delta, bool isFirst);
    CRect PlaceOf(const CWnd& control) const;

    std::vector<UINT> m_First;
    std::vector<UINT> m_Second;
    int m_FirstMinimum = 0;
    int m_SecondMinimum = 0;
    bool m_IsDragging = false;
    int m_GripOffset = 0;     // of the pointer within the bar
    int m_PositionBefore = 0; // where the drag began
};

} // namespace utility
