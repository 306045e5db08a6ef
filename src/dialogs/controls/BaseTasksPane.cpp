#include "dialogs/controls/BaseTasksPane.h"

#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/SystemMetrics.h"
#include "platform/ui/drawing/PaintDC.h"

#include <algorithm>
#include <climits>

namespace utility
{

IMPLEMENT_DYNAMIC(CBaseTasksPane, CWnd)

namespace
{

constexpr int INDENT = 8;        // pixels before texts
constexpr int WHEEL_NOTCH = 120; // of WM_MOUSEWHEEL
constexpr CTasksLayout::CLine NO_LINE{-1, -1};

} // namespace

bool CBaseTasksPane::Create(const char16_t* name, DWORD style, const CRect& place, CWnd* parent,
                            UINT id)
{
    m_Name = name;
    return CreateEx(0, u"BaseTasksPane", name, style | WS_CHILD, place, parent, id);
}

const CMessageMap* CBaseTasksPane::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {
        MessageRow<&CBaseTasksPane::OnPaint>(WM_PAINT),
        MessageRow<&CBaseTasksPane::OnSize>(WM_SIZE),
        MessageRow<&CBaseTasksPane::OnLButtonDown>(WM_LBUTTONDOWN),
        MessageRow<&CBaseTasksPane::OnLButtonUp>(WM_LBUTTONUP),
        MessageRow<&CBaseTasksPane::OnMouseWheel>(WM_MOUSEWHEEL),
        MessageRow<&CBaseTasksPane::OnKeyDown>(WM_KEYDOWN),
        MessageRow<&CBaseTasksPane::OnFocusChanged>(WM_SETFOCUS),
        MessageRow<&CBaseTasksPane::OnFocusChanged>(WM_KILLFOCUS),
        MessageRow<&CBaseTasksPane::OnGetDlgCode>(WM_GETDLGCODE)};
    static const CMessageMap MAP{CWnd::GetMessageMap(), ROWS};
    return &MAP;
}

int CBaseTasksPane::AddGroup(const CString& caption, bool isOpen)
{
    m_Layout.m_Groups.push_back({caption, isOpen, {}});
    Invalidate();
    return static_cast<int>(m_Layout.m_Groups.size()) - 1;
}

bool CBaseTasksPane::AddTask(int group, const CString& text, UINT command)
{
    if (!HasGroup(group))
        return false;
    m_Layout.m_Groups[static_cast<std::size_t>(group)].m_Tasks.push_back({text, command, true});
    Invalidate();
    return true;
}

void CBaseTasksPane::RemoveAll()
{
    m_Layout.m_Groups.clear();
    m_Current = {};
    m_Pressed = NO_LINE;
    ScrollTo(0);
}

void CBaseTasksPane::EnableTask(UINT command, bool enable)
{
    for (CTasksLayout::CGroup& group : m_Layout.m_Groups)
    {
        for (CTasksLayout::CTask& task : group.m_Tasks)
        {
            if (task.m_Command == command)
                task.m_IsEnabled = enable;
        }
    }
    Invalidate();
}

bool CBaseTasksPane::HasGroup(int group) const
{
    return group >= 0 && group < static_cast<int>(m_Layout.m_Groups.size());
}

bool CBaseTasksPane::IsGroupOpen(int group) const
{
    return HasGroup(group) && m_Layout.m_Groups[static_cast<std::size_t>(group)].m_IsOpen;
}

void CBaseTasksPane::OpenGroup(int group, bool open)
{
    if (!HasGroup(group))
        return;
    m_Layout.m_Groups[static_cast<std::size_t>(group)].m_IsOpen = open;
    if (!open && m_Current.m_Group == group)
        m_Current.m_Task = -1;
    ScrollTo(m_Top);
}

bool CBaseTasksPane::HitTest(CPoint point, CTasksLayout::CLine& line) const
{
    point.y += m_Top;
    for (const CTasksLayout::CPlacedLine& candidate : m_Layout.LayOut(GetClientRect().Width()))
    {
        if (!candidate.m_Place.PtInRect(point))
            continue;
        line = candidate.m_Line;
        return true;
    }
    return false;
}

void CBaseTasksPane::GoTo(const CTasksLayout::CLine& line)
{
    m_Current = line;
    const CTasksLayout::CTask* task = m_Layout.FindTask(line);
    const CString& text =
        task ? task->m_Text : m_Layout.m_Groups[static_cast<std::size_t>(line.m_Group)].m_Caption;
    SetWindowText(m_Name + u": " + text);
    for (const CTasksLayout::CPlacedLine& candidate : m_Layout.LayOut(0))
    {
        if (candidate.m_Line == line)
            ScrollIntoView(candidate.m_Place);
    }
    Invalidate();
}

void CBaseTasksPane::ScrollIntoView(const CRect& place)
{
    const int height = GetClientRect().Height();
    if (place.bottom > m_Top + height)
        ScrollTo(place.bottom - height);
    if (place.top < m_Top)
        ScrollTo(place.top);
}

void CBaseTasksPane::ScrollTo(int top)
{
    const int highest = std::max(m_Layout.GetHeight() - GetClientRect().Height(), 0);
    m_Top = std::clamp(top, 0, highest);
    Invalidate();
}

void CBaseTasksPane::Run(const CTasksLayout::CLine& line)
{
    const CTasksLayout::CTask* task = m_Layout.FindTask(line);
    const CWnd* parent = GetParent();
    if (!task)
        OpenGroup(line.m_Group, !IsGroupOpen(line.m_Group));
    else if (task->m_IsEnabled && parent)
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(static_cast<int>(task->m_Command), 0));
}

LRESULT CBaseTasksPane::OnSize(WPARAM type, LPARAM size)
{
    const LRESULT result = DefWindowProc(WM_SIZE, type, size);
    ScrollTo(m_Top);
    return result;
}

LRESULT CBaseTasksPane::OnLButtonDown(WPARAM, LPARAM point)
{
    SetFocus();
    if (HitTest({GET_X_LPARAM(point), GET_Y_LPARAM(point)}, m_Pressed))
        GoTo(m_Pressed);
    return 0;
}

LRESULT CBaseTasksPane::OnLButtonUp(WPARAM, LPARAM point)
{
    CTasksLayout::CLine released = NO_LINE;
    const CTasksLayout::CLine pressed = std::exchange(m_Pressed, NO_LINE);
    if (HitTest({GET_X_LPARAM(point), GET_Y_LPARAM(point)}, released) && released == pressed)
        Run(released);
    return 0;
}

LRESULT CBaseTasksPane::OnMouseWheel(WPARAM distance, LPARAM)
{
    const int notches = static_cast<std::int16_t>(HIWORD(distance));
    ScrollTo(m_Top - notches * CTasksLayout::TASK_HEIGHT / WHEEL_NOTCH);
    return 0;
}

LRESULT CBaseTasksPane::OnKeyDown(WPARAM key, LPARAM lParam)
{
    if (m_Layout.m_Groups.empty())
        return DefWindowProc(WM_KEYDOWN, key, lParam);
    switch (key)
    {
    case VK_UP:
        GoTo(m_Layout.Step(m_Current, -1));
        return 0;
    case VK_DOWN:
        GoTo(m_Layout.Step(m_Current, 1));
        return 0;
    case VK_HOME:
        GoTo(m_Layout.Step(m_Current, -INT_MAX));
        return 0;
    case VK_END:
        GoTo(m_Layout.Step(m_Current, INT_MAX));
        return 0;
    case VK_LEFT:
        OpenGroup(m_Current.m_Group, false);
        return 0;
    case VK_RIGHT:
        OpenGroup(m_Current.m_Group, true);
        return 0;
    case VK_RETURN:
    case VK_SPACE:
        Run(m_Current);
        return 0;
    default:
        return DefWindowProc(WM_KEYDOWN, key, lParam);
    }
}

LRESULT CBaseTasksPane::OnFocusChanged(WPARAM, LPARAM)
{
    Invalidate();
    return 0;
}

LRESULT CBaseTasksPane::OnGetDlgCode(WPARAM, LPARAM)
{
    return DLGC_WANTARROWS | DLGC_WANTCHARS;
}

LRESULT CBaseTasksPane::OnPaint(WPARAM, LPARAM)
{
    CPaintDC context(this);
    const CRect client = GetClientRect();
    context.FillSolidRect(client, GetSysColor(COLOR_WINDOW));
    context.SetBkMode(TRANSPARENT);
    for (CTasksLayout::CPlacedLine line : m_Layout.LayOut(client.Width()))
    {
        line.m_Place.OffsetRect(0, -m_Top);
        if (line.m_Place.bottom > 0 && line.m_Place.top < client.bottom)
            DrawLine(context, line);
    }
    return 0;
}

void CBaseTasksPane::DrawLine(CDC& context, const CTasksLayout::CPlacedLine& line) const
{
    const CTasksLayout::CTask* task = m_Layout.FindTask(line.m_Line);
    CRect text = line.m_Place;
    text.left += task ? 2 * INDENT : INDENT;
    if (task)
    {
        context.SetTextColor(GetSysColor(task->m_IsEnabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
        context.DrawText(task->m_Text, text, DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }
    else
    {
        const auto group = static_cast<std::size_t>(line.m_Line.m_Group);
        const CTasksLayout::CGroup& content = m_Layout.m_Groups[group];
        context.FillSolidRect(line.m_Place, GetSysColor(COLOR_BTNFACE));
        context.SetBkMode(TRANSPARENT);
        context.SetTextColor(GetSysColor(COLOR_BTNTEXT));
        const CString mark = content.m_IsOpen ? u"\u25BE " : u"\u25B8 ";
        context.DrawText(mark + content.m_Caption, text, DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }
    if (line.m_Line == m_Current && GetFocus() == this)
        context.DrawFocusRect(line.m_Place);
}

} // namespace utility
