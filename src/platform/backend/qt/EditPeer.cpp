#include "platform/backend/qt/EditPeer.h"

#include "platform/backend/qt/StaticPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Edit.h"

#include <algorithm>

namespace utility
{

void CEditPeer::SetHandle(HWND window)
{
    CQtWindowPeer::SetHandle(window);
    m_IsMade = true;
}

bool CEditPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message)
    {
    case WM_CREATE:
        TakeLabelBefore(*this);
        return true;
    case EM_GETSEL:
        result = TellRange(wParam, lParam);
        return true;
    case EM_SETSEL:
        TakeRange(static_cast<int>(wParam), static_cast<int>(lParam));
        return true;
    case EM_SCROLLCARET:
        ShowCaret();
        return true;
    case EM_REPLACESEL:
        Replace(ToQString(CString(reinterpret_cast<const char16_t*>(lParam))));
        return true;
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR:
        Clip(message);
        return true;
    case WM_SETFOCUS:
        NotifyParent(EN_SETFOCUS);
        return true;
    case WM_KILLFOCUS:
        NotifyParent(EN_KILLFOCUS);
        return true;
    case WM_GETDLGCODE:
        result = GetDialogCode();
        return true;
    default:
        return HandleState(message, wParam, result) ||
               CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
    }
}

bool CEditPeer::HandleState(UINT message, WPARAM wParam, LRESULT& result)
{
    switch (message)
    {
    case EM_LIMITTEXT:
        SetLimit(static_cast<int>(wParam));
        return true;
    case EM_GETLIMITTEXT:
        result = GetLimit();
        return true;
    case EM_SETREADONLY:
        SetStyle(wParam ? GetStyle() | ES_READONLY : GetStyle() & ~ES_READONLY);
        SetReadOnly(wParam != 0);
        result = TRUE;
        return true;
    case EM_GETMODIFY:
        result = IsModified();
        return true;
    case EM_SETMODIFY:
        SetModified(wParam != 0);
        return true;
    case EM_GETLINECOUNT:
        result = GetLineCount();
        return true;
    default:
        return false;
    }
}

LRESULT CEditPeer::GetDialogCode() const
{
    return DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
}

LRESULT CEditPeer::TellRange(WPARAM first, LPARAM last) const
{
    const CRange range = GetRange();
    if (auto* target = reinterpret_cast<DWORD*>(first))
        *target = static_cast<DWORD>(range.m_First);
    if (auto* target = reinterpret_cast<DWORD*>(last))
        *target = static_cast<DWORD>(range.m_Last);
    return MAKELPARAM(range.m_First, range.m_Last);
}

void CEditPeer::TakeRange(int first, int last)
{
    const int length = GetText().GetLength();
    if (first < 0)
    {
        Deselect();
        return;
    }
    first = std::min(first, length);
    last = last < 0 ? length : std::min(last, length);
    SelectRange({std::min(first, last), std::max(first, last)});
}

void CEditPeer::TellChange()
{
    if (!m_IsMade)
        return;
    NotifyParent(EN_UPDATE);
    if (IsOpen())
        NotifyParent(EN_CHANGE);
}

} // namespace utility
