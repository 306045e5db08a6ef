#include "platform/ui/controls/Edit.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CEdit, CWnd)

bool CEdit::Create(DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CWnd::Create(u"EDIT", u"", style, parent, id))
        return false;
    MoveWindow(place);
    return true;
}

void CEdit::SetSel(int first, int last, bool noScroll)
{
    SendMessage(EM_SETSEL, static_cast<WPARAM>(first), last);
    if (!noScroll)
        SendMessage(EM_SCROLLCARET);
}

void CEdit::GetSel(int& first, int& last) const
{
    DWORD from = 0;
    DWORD to = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    first = static_cast<int>(from);
    last = static_cast<int>(to);
}

void CEdit::ReplaceSel(const CString& text, bool canUndo)
{
    SendMessage(EM_REPLACESEL, canUndo, reinterpret_cast<LPARAM>(text.GetString()));
}

void CEdit::LimitText(int limit)
{
    SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(limit));
}

bool CEdit::SetReadOnly(bool readOnly)
{
    return SendMessage(EM_SETREADONLY, readOnly) != 0;
}

bool CEdit::GetModify() const
{
    return SendMessage(EM_GETMODIFY) != 0;
}

void CEdit::SetModify(bool modified)
{
    SendMessage(EM_SETMODIFY, modified);
}

int CEdit::GetLineCount() const
{
    return static_cast<int>(SendMessage(EM_GETLINECOUNT));
}

} // namespace utility
