#include "dialogs/ResizeDialog.h"

#include "dialogs/ResizeLayout.h"
#include "dialogs/ResizingHandle.h"
#include "dialogs/WindowPlacement.h"
#include "dialogs/WindowPosition.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/ui/BCGPVisualManager.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/DeferWindowPos.h"
#include "platform/ui/InputState.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CResizeDialog, CBaseDialog)

namespace
{

constexpr int MOVES_AT_ONCE = 8; // slots that the block of moves begins with
constexpr UINT KEEP_ORDER = SWP_NOZORDER | SWP_NOACTIVATE;

// Pictures and spin buttons look wrong in any other size.
bool HasFixedSize(const CWnd& control)
{
    const CString className = control.GetClassName();
    if (className.CompareNoCase(u"msctls_updown32") == 0)
        return true;
    return className.CompareNoCase(u"Static") == 0 &&
           (control.GetStyle() & SS_TYPEMASK) == SS_BITMAP;
}

int HeightOf(const CWnd& control)
{
    return control.GetWindowRect().Height();
}

void Defer(HDWP& moves, const CWnd& control, const CRect& place)
{
    moves = DeferWindowPos(moves, control, nullptr, place.left, place.top, place.Width(),
                           place.Height(), KEEP_ORDER);
}

} // namespace

CResizeDialog::CResizeDialog(UINT templateId, CWnd* parent, bool isResizable,
                             bool hasTwoStretchControls)
    : CBaseDialog(templateId, parent),
      m_HasTwoStretchControls(hasTwoStretchControls),
      m_IsResizable(isResizable)
{
}

const CMessageMap* CResizeDialog::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {
        MessageRow<&CResizeDialog::OnSize>(WM_SIZE),
        MessageRow<&CResizeDialog::OnGetMinMaxInfo>(WM_GETMINMAXINFO),
        MessageRow<&CResizeDialog::OnShowWindow>(WM_SHOWWINDOW)};
    static const CMessageMap MAP{CBaseDialog::GetMessageMap(), ROWS};
    return &MAP;
}

bool CResizeDialog::OnInitDialog()
{
    const bool takesFocus = CBaseDialog::OnInitDialog();
    const CSize size = GetWindowRect().Size();
    m_MinimumWidth = size.cx;
    m_MinimumHeight = size.cy;
    m_IsNotInitialised = false;
    m_Client = GetClientRect();
    SetWindowTheme();
    RestoreSize();
    return takesFocus;
}

bool CResizeDialog::DestroyWindow()
{
    if (GetSafeHwnd())
        StoreSize();
    m_IsNotInitialised = true; // a next window begins anew
    return CBaseDialog::DestroyWindow();
}

void CResizeDialog::SetWindowTheme()
{
    CBaseDialog::SetWindowTheme();
    // Not earlier: the first children are those of the template.
    if (m_IsResizable && IsInitialised())
        InsertResizingHandle(*this, m_ResizingHandle, IsVisualManagerStyle());
}

LRESULT CResizeDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    // The size before is known now alone, and wanted even if the dialog closes maximised.
    if (message == WM_SYSCOMMAND && wParam == SC_MAXIMIZE && !m_SizeRegistryKey.IsEmpty())
        SaveWindowPosition(*this, m_SizeRegistryKey);
    return CBaseDialog::WindowProc(message, wParam, lParam);
}

LRESULT CResizeDialog::OnGetMinMaxInfo(WPARAM wParam, LPARAM info)
{
    const LRESULT result = DefWindowProc(WM_GETMINMAXINFO, wParam, info);
    if (!m_IsNotInitialised || !m_IsResizable)
        reinterpret_cast<MINMAXINFO*>(info)->ptMinTrackSize = {m_MinimumWidth, m_MinimumHeight};
    return result;
}

// A dialog that was made larger than the screen, or for a place beyond it, is shown all the same.
LRESULT CResizeDialog::OnShowWindow(WPARAM isShown, LPARAM reason)
{
    const bool isOnItsOwn = (GetStyle() & WS_CHILD) == 0;
    if (isShown && isOnItsOwn && !IsZoomed())
        MoveWindowOnScreen(*this);
    return DefWindowProc(WM_SHOWWINDOW, isShown, reason);
}

LRESULT CResizeDialog::OnSize(WPARAM type, LPARAM size)
{
    const LRESULT result = DefWindowProc(WM_SIZE, type, size);
    if (m_IsNotInitialised || !m_IsResizable || type == SIZE_MINIMIZED)
        return result;

    const CRect before = m_Client;
    m_Client = {0, 0, LOWORD(static_cast<WPARAM>(size)), HIWORD(static_cast<WPARAM>(size))};
    LayOut(m_Client.Width() - before.Width(), m_Client.Height() - before.Height());
    return result;
}

void CResizeDialog::LayOut(int dx, int dy)
{
    const std::vector<CWnd*> children = GetChildren();
    if (children.empty() || children[0] == &m_ResizingHandle || (dx == 0 && dy == 0))
        return;

    CWnd* stretchControl = ChooseStretchControl(children, dy);
    const CResizeLayout layout(PlaceOf(*stretchControl), {dx, dy});
    HDWP moves = BeginDeferWindowPos(MOVES_AT_ONCE);
    Defer(moves, *stretchControl, layout.PlaceStretchControl());
    for (CWnd* child : children)
    {
        if (child == stretchControl || child == &m_ResizingHandle ||
            AdjustControl(moves, *child, dx, dy))
            continue;
        const CRect before = PlaceOf(*child);
        const CRect after = layout.Place(before, HasFixedSize(*child));
        if (after != before)
            Defer(moves, *child, after);
    }
    EndDeferWindowPos(moves);
    PlaceResizingHandle(*this, m_ResizingHandle);
}

CWnd* CResizeDialog::ChooseStretchControl(const std::vector<CWnd*>& children, int dy) const
{
    CStretchChoice choice;
    choice.m_HasSecond = m_HasTwoStretchControls && children.size() > 1;
    if (!choice.m_HasSecond)
        return children[0];
    choice.m_PrefersSecond = m_IsRestoringSecondChild || IsKeyDown(VK_SHIFT);
    choice.m_FirstHeight = HeightOf(*children[0]);
    choice.m_FirstMinimum = m_FirstChildMinimum;
    choice.m_SecondHeight = HeightOf(*children[1]);
    choice.m_SecondMinimum = m_SecondChildMinimum;
    return children[TakesSecondStretchControl(choice, dy) ? 1 : 0];
}

bool CResizeDialog::AdjustControl(HDWP&, CWnd&, int, int)
{
    return false;
}

void CResizeDialog::MoveControl(HDWP& moves, CWnd& control, int dx, int dy)
{
    MoveAndResizeControl(moves, control, dx, dy, 0, 0);
}

void CResizeDialog::ResizeControl(HDWP& moves, CWnd& control, int dx, int dy)
{
    MoveAndResizeControl(moves, control, 0, 0, dx, dy);
}

void CResizeDialog::MoveAndResizeControl(HDWP& moves, CWnd& control, int dx, int dy, int dWidth,
                                         int dHeight)
{
    CRect place = PlaceOf(control);
    place.OffsetRect(dx, dy);
    place.right += dWidth;
    place.bottom += dHeight;
    Defer(moves, control, place);
}

CRect CResizeDialog::PlaceOf(const CWnd& control) const
{
    CRect place = control.GetWindowRect();
    ScreenToClient(place);
    return place;
}

} // namespace utility
