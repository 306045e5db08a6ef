#include "platform/ui/controls/ComboBox.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/OwnerDraw.h"
#include "platform/ui/controls/ComboBoxMessages.h"

namespace utility
{

namespace
{

LPARAM TextParameter(const CString& text)
{
    return reinterpret_cast<LPARAM>(text.GetString());
}

} // namespace

IMPLEMENT_DYNAMIC(CComboBox, CWnd)

bool CComboBox::Create(DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CWnd::Create(u"COMBOBOX", u"", style, parent, id))
        return false;
    MoveWindow(place);
    return true;
}

int CComboBox::AddString(const CString& text)
{
    return static_cast<int>(SendMessage(CB_ADDSTRING, 0, TextParameter(text)));
}

int CComboBox::InsertString(int row, const CString& text)
{
    return static_cast<int>(
        SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(row), TextParameter(text)));
}

int CComboBox::DeleteString(int row)
{
    return static_cast<int>(SendMessage(CB_DELETESTRING, static_cast<WPARAM>(row)));
}

void CComboBox::ResetContent()
{
    SendMessage(CB_RESETCONTENT);
}

int CComboBox::GetCount() const
{
    return static_cast<int>(SendMessage(CB_GETCOUNT));
}

int CComboBox::GetLBTextLen(int row) const
{
    return static_cast<int>(SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(row)));
}

bool CComboBox::GetLBText(int row, CString& text) const
{
    const int length = GetLBTextLen(row);
    if (length < 0)
        return false;
    CString result;
    SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(row),
                reinterpret_cast<LPARAM>(result.GetBuffer(length)));
    result.ReleaseBuffer(length);
    text = result;
    return true;
}

LPARAM CComboBox::GetItemData(int row) const
{
    return SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(row));
}

bool CComboBox::SetItemData(int row, LPARAM data)
{
    return SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(row), data) != CB_ERR;
}

int CComboBox::GetCurSel() const
{
    return static_cast<int>(SendMessage(CB_GETCURSEL));
}

int CComboBox::SetCurSel(int row)
{
    return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(row)));
}

int CComboBox::FindString(int after, const CString& start) const
{
    return static_cast<int>(
        SendMessage(CB_FINDSTRING, static_cast<WPARAM>(after), TextParameter(start)));
}

int CComboBox::FindStringExact(int after, const CString& text) const
{
    return static_cast<int>(
        SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(after), TextParameter(text)));
}

int CComboBox::SelectString(int after, const CString& start)
{
    return static_cast<int>(
        SendMessage(CB_SELECTSTRING, static_cast<WPARAM>(after), TextParameter(start)));
}

bool CComboBox::GetEditSel(int& first, int& last) const
{
    DWORD from = 0;
    DWORD to = 0;
    if (SendMessage(CB_GETEDITSEL, reinterpret_cast<WPARAM>(&from),
                    reinterpret_cast<LPARAM>(&to)) == CB_ERR)
        return false;
    first = static_cast<int>(from);
    last = static_cast<int>(to);
    return true;
}

bool CComboBox::SetEditSel(int first, int last)
{
    constexpr unsigned WORD_MASK = 0xFFFF;
    const DWORD range = (static_cast<unsigned>(first) & WORD_MASK) |
                        (static_cast<unsigned>(last) & WORD_MASK) << 16;
    return SendMessage(CB_SETEDITSEL, 0, static_cast<LPARAM>(range)) == TRUE;
}

void CComboBox::LimitText(int limit)
{
    SendMessage(CB_LIMITTEXT, static_cast<WPARAM>(limit));
}

void CComboBox::ShowDropDown(bool show)
{
    SendMessage(CB_SHOWDROPDOWN, show);
}

bool CComboBox::GetDroppedState() const
{
    return SendMessage(CB_GETDROPPEDSTATE) != 0;
}

int CComboBox::SetDroppedWidth(int width)
{
    return static_cast<int>(SendMessage(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width)));
}

int CComboBox::GetDroppedWidth() const
{
    return static_cast<int>(SendMessage(CB_GETDROPPEDWIDTH));
}

bool CComboBox::SetItemHeight(int row, UINT height)
{
    return SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(row), static_cast<LPARAM>(height)) !=
           CB_ERR;
}

int CComboBox::GetItemHeight(int row) const
{
    return static_cast<int>(SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(row)));
}

void CComboBox::DrawItem(DRAWITEMSTRUCT*) {}

void CComboBox::MeasureItem(MEASUREITEMSTRUCT*) {}

LRESULT CComboBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    // What the parent leaves to the combo comes back to it.
    switch (message)
    {
    case WM_DRAWITEM:
        DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_MEASUREITEM:
        MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
        return TRUE;
    default:
        return CWnd::WindowProc(message, wParam, lParam);
    }
}

} // namespace utility
