#include "dialogs/controls/PopupColorWell.h"

#include "dialogs/WindowPlacement.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ColourDialog.h"
#include "platform/ui/SystemMetrics.h"
#include "platform/ui/drawing/Brush.h"
#include "platform/ui/drawing/PaintDC.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"

namespace utility
{

IMPLEMENT_DYNAMIC(SECPopupColorWell, CWnd)

namespace
{

constexpr int OTHER_HEIGHT = 24; // pixels
constexpr int CELL_GAP = 2;      // between a cell's side and its colour
constexpr DWORD SHOW_FIRST = 4;  // of RunModalLoop

CString DescribeColour(COLORREF colour)
{
    CString text;
    text.Format(u"#%02X%02X%02X", GetRValue(colour), GetGValue(colour), GetBValue(colour));
    return text;
}

} // namespace

const CMessageMap* SECPopupColorWell::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {
        MessageRow<&SECPopupColorWell::OnPaint>(WM_PAINT),
        MessageRow<&SECPopupColorWell::OnMouseMove>(WM_MOUSEMOVE),
        MessageRow<&SECPopupColorWell::OnLButtonUp>(WM_LBUTTONUP),
        MessageRow<&SECPopupColorWell::OnKeyDown>(WM_KEYDOWN),
        MessageRow<&SECPopupColorWell::OnActivate>(WM_ACTIVATE),
        MessageRow<&SECPopupColorWell::OnGetDlgCode>(WM_GETDLGCODE)};
    static const CMessageMap MAP{CWnd::GetMessageMap(), ROWS};
    return &MAP;
}

bool SECPopupColorWell::Choose(CWnd& control, COLORREF& colour)
{
    m_Colour = colour;
    m_Current = m_Palette.Find(colour);
    const HWND owner = control.GetSafeHwnd();
    if (!Open(control))
        return false;
    const bool isChosen = RunModalLoop(SHOW_FIRST) == IDOK;
    DestroyWindow();

    CWnd* living = FromHandle(owner);
    if (!living)
        return false;
    living->SetFocus();
    if (isChosen)
        colour = m_Colour;
    return isChosen;
}

bool SECPopupColorWell::Open(CWnd& control)
{
    const CRect below = control.GetWindowRect();
    const CRect place({below.left, below.bottom}, GetSize());
    if (!CreateEx(WS_EX_TOOLWINDOW, u"SECPopupColorWell", DescribeColour(m_Colour).GetString(),
                  WS_POPUP | WS_BORDER, place, &control))
        return false;
    MoveWindowOnScreen(*this);
    return true;
}

CSize SECPopupColorWell::GetSize() const
{
    const CSize palette = m_Palette.GetSize();
    return {palette.cx, palette.cy + OTHER_HEIGHT};
}

CRect SECPopupColorWell::GetOtherPlace() const
{
    const CSize size = m_Palette.GetSize();
    CRect place(0, size.cy, size.cx, size.cy + OTHER_HEIGHT);
    place.DeflateRect(CColourPalette::MARGIN, 0, CColourPalette::MARGIN, CColourPalette::MARGIN);
    return place;
}

int SECPopupColorWell::HitTest(CPoint point) const
{
    return GetOtherPlace().PtInRect(point) ? m_Palette.GetCount() : m_Palette.HitTest(point);
}

int SECPopupColorWell::Step(UINT key) const
{
    const int other = m_Palette.GetCount();
    if (m_Current == other)
    {
        const bool leadsBack = key == VK_UP || key == VK_LEFT;
        return leadsBack ? other - 1 : key == VK_HOME ? 0 : other;
    }
    const int next = m_Palette.Step(m_Current, key);
    const bool isAtEnd = next == m_Current && m_Current >= 0;
    const bool leadsOn = key == VK_DOWN || (key == VK_RIGHT && m_Current == other - 1);
    return isAtEnd && leadsOn ? other : next;
}

void SECPopupColorWell::SetCurrent(int item)
{
    if (item == m_Current)
        return;
    m_Current = item;
    if (item >= 0)
        SetWindowText(item == m_Palette.GetCount() ? CStringTable::Get(IDS_OTHER_COLOUR)
                                                   : DescribeColour(m_Palette.GetColour(item)));
    Invalidate();
}

void SECPopupColorWell::Take(int item)
{
    if (item < 0)
        return;
    if (item == m_Palette.GetCount())
    {
        ChooseOther();
        return;
    }
    m_Colour = m_Palette.GetColour(item);
    EndModalLoop(IDOK);
}

void SECPopupColorWell::ChooseOther()
{
    m_IsChoosingOther = true;
    CColorDialog dialog(m_Colour, this);
    const bool isChosen = dialog.DoModal() == IDOK;
    m_IsChoosingOther = false;
    if (isChosen)
        m_Colour = dialog.GetColor();
    EndModalLoop(isChosen ? IDOK : IDCANCEL);
}

LRESULT SECPopupColorWell::OnMouseMove(WPARAM, LPARAM point)
{
    const int item = HitTest({GET_X_LPARAM(point), GET_Y_LPARAM(point)});
    if (item >= 0)
        SetCurrent(item);
    return 0;
}

LRESULT SECPopupColorWell::OnLButtonUp(WPARAM, LPARAM point)
{
    Take(HitTest({GET_X_LPARAM(point), GET_Y_LPARAM(point)}));
    return 0;
}

LRESULT SECPopupColorWell::OnKeyDown(WPARAM key, LPARAM)
{
    if (key == VK_ESCAPE || key == VK_TAB)
        EndModalLoop(IDCANCEL);
    else if (key == VK_RETURN || key == VK_SPACE)
        Take(m_Current);
    else
        SetCurrent(Step(static_cast<UINT>(key)));
    return 0;
}

LRESULT SECPopupColorWell::OnActivate(WPARAM state, LPARAM)
{
    if (LOWORD(state) == WA_INACTIVE && !m_IsChoosingOther)
        EndModalLoop(IDCANCEL);
    return 0;
}

LRESULT SECPopupColorWell::OnGetDlgCode(WPARAM, LPARAM)
{
    return DLGC_WANTALLKEYS;
}

LRESULT SECPopupColorWell::OnPaint(WPARAM, LPARAM)
{
    CPaintDC context(this);
    context.FillSolidRect(GetClientRect(), GetSysColor(COLOR_MENU));
    for (int cell = 0; cell < m_Palette.GetCount(); ++cell)
        DrawCell(context, cell);
    DrawOther(context);
    return 0;
}

void SECPopupColorWell::DrawCell(CDC& context, int cell) const
{
    CRect place = m_Palette.GetCellPlace(cell);
    if (cell == m_Current)
        context.FillSolidRect(place, GetSysColor(COLOR_HIGHLIGHT));
    place.DeflateRect(CELL_GAP, CELL_GAP);
    context.FillSolidRect(place, m_Palette.GetColour(cell));
    const CBrush frame(GetSysColor(COLOR_WINDOWTEXT));
    context.FrameRect(place, &frame);
}

void SECPopupColorWell::DrawOther(CDC& context) const
{
    CRect place = GetOtherPlace();
    const bool isCurrent = m_Current == m_Palette.GetCount();
    context.FillSolidRect(place, GetSysColor(isCurrent ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
    context.SetTextColor(GetSysColor(isCurrent ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    context.SetBkMode(TRANSPARENT);
    context.DrawText(CStringTable::Get(IDS_OTHER_COLOUR), place,
                     DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

} // namespace utility
