#include "dialogs/controls/ToolTipEx.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CToolTipEx, CToolTipCtrl)

bool CToolTipEx::Create(CWnd* owner, int maxWidth)
{
    if (!CToolTipCtrl::Create(owner))
        return false;
    SetMaxTipWidth(maxWidth);
    return true;
}

void CToolTipEx::SetTip(CWnd* window, const CString& text)
{
    const HWND handle = window ? window->GetSafeHwnd() : nullptr;
    if (text.IsEmpty())
    {
        DelTool(window);
        m_Texts.erase(handle);
    }
    else if (AddTool(window, text))
        m_Texts[handle] = text;
}

bool CToolTipEx::SetTip(CWnd& dialog, int controlId, UINT textId)
{
    CWnd* control = dialog.GetDlgItem(controlId);
    CString text;
    if (!control || !text.LoadString(textId))
        return false;
    SetTip(control, text);
    return true;
}

void CToolTipEx::AddLine(CWnd* window, const CString& line)
{
    const CString before = GetTip(window);
    SetTip(window, before.IsEmpty() ? line : before + u"\r\n" + line);
}

CString CToolTipEx::GetTip(const CWnd* window) const
{
    const auto found = m_Texts.find(window ? window->GetSafeHwnd() : nullptr);
    return found == m_Texts.end() ? CString() : found->second;
}

} // namespace utility
