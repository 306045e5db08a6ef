#pragma once

#include "dialogs/controls/TasksLayout.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

class CDC;

/// Groups of tasks at the side of a window; a task is a command of the window around.
///
/// A click or Enter on a task sends WM_COMMAND with its number to the parent; on a caption it opens
/// or closes the group, as Left and Right do. Up, Down, Home and End go from line to line, the
/// wheel scrolls where there are more lines than room. The pane's text tells the line that the keys
/// are on, for those who cannot see it. User-interface thread.
class UTILITY_UI_API CBaseTasksPane : public CWnd
{
    DECLARE_DYNAMIC(CBaseTasksPane)

public:
    bool Create(const char16_t* name, DWORD style, const CRect& place, CWnd* parent, UINT id);

    /// The new group's number, from 0.
    int AddGroup(const CString& caption, bool isOpen = true);
    /// False if there is no such group.
    bool AddTask(int group, const CString& text, UINT command);
    void RemoveAll();
    /// Every task of that command.
    void EnableTask(UINT command, bool enable);
    void OpenGroup(int group, bool open);
    bool IsGroupOpen(int group) const;

protected:
    const CMessageMap* GetMessageMap() const override;

private:
    LRESULT OnPaint(WPARAM, LPARAM);
    LRESULT OnSize(WPARAM type, LPARAM size);
    LRESULT OnLButtonDown(WPARAM keys, LPARAM point);
    LRESULT OnLButtonUp(WPARAM keys, LPARAM point);
    LRESULT OnMouseWheel(WPARAM distance, LPARAM point);
    LRESULT OnKeyDown(WPARAM key, LPARAM lParam);
    LRESULT OnFocusChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetDlgCode(WPARAM, LPARAM);

    bool HasGroup(int group) const;
    bool HitTest(CPoint point, CTasksLayout::CLine& line) const;
    void GoTo(const CTasksLayout::CLine& line);
    void Run(const CTasksLayout::CLine& line);
    void ScrollTo(int top);
    void ScrollIntoView(const CRect& place);
    void DrawLine(CDC& context, const CTasksLayout::CPlacedLine& line) const;

    CTasksLayout m_Layout;
    CString m_Name;
    CTasksLayout::CLine m_Current;
    CTasksLayout::CLine m_Pressed{-1, -1};
    int m_Top = 0; // the first pixel of the layout that is seen
};

} // namespace utility
