#include "platform/ui/controls/ToolTipCtrl.h"

#include "platform/system/window/WindowMessages.h"

namespace utility
{

namespace
{

HWND HandleOf(const CWnd* window)
{
    return window ? window->GetSafeHwnd() : nullptr;
}

} // namespace

IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)

bool CToolTipCtrl::Create(CWnd* owner, DWORD style)
{
    return CWnd::Create(u"tooltips_class32", u"", style | WS_POPUP, owner);
}

bool CToolTipCtrl::AddTool(CWnd* window, const CString& text, const CRect& place, UINT id)
{
    const CToolTipTool tool{HandleOf(window), id, place, text};
    return SendMessage(TTM_ADDTOOL, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
}

void CToolTipCtrl::DelTool(CWnd* window, UINT id)
{
    const CToolTipTool tool{HandleOf(window), id, {}, {}};
    SendMessage(TTM_DELTOOL, 0, reinterpret_cast<LPARAM>(&tool));
}

void CToolTipCtrl::UpdateTipText(const CString& text, CWnd* window, UINT id)
{
    const CToolTipTool tool{HandleOf(window), id, {}, text};
    SendMessage(TTM_UPDATETIPTEXT, 0, reinterpret_cast<LPARAM>(&tool));
}

void CToolTipCtrl::Activate(bool active)
{
    SendMessage(TTM_ACTIVATE, active);
}

int CToolTipCtrl::GetToolCount() const
{
    return static_cast<int>(SendMessage(TTM_GETTOOLCOUNT));
}

int CToolTipCtrl::SetMaxTipWidth(int width)
{
    return static_cast<int>(SendMessage(TTM_SETMAXTIPWIDTH, 0, width));
}

} // namespace utility
