#include "platform/ui/controls/ListBox.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/OwnerDraw.h"
#include "platform/ui/controls/ListBoxMessages.h"

namespace utility
{

namespace
{

LPARAM TextParameter(const CString& text)
{
    return reinterpret_cast<LPARAM>(text.GetString());
}

} // namespace

IMPLEMENT_DYNAMIC(CListBox, CWnd)

bool CListBox::Create(DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CWnd::Create(u"ListBox", u"", style, parent, id))
        return false;
    MoveWindow(place);
    return true;
}

int CListBox::AddString(const CString& text)
{
    return static_cast<int>(SendMessage(LB_ADDSTRING, 0, TextParameter(text)));
}

int CListBox::InsertString(int row, const CString& text)
{
    return static_cast<int>(
        SendMessage(LB_INSERTSTRING, static_cast<WPARAM>(row), TextParameter(text)));
}

int CListBox::DeleteString(int row)
{
    return static_cast<int>(SendMessage(LB_DELETESTRING, static_cast<WPARAM>(row)));
}

void CListBox::ResetContent()
{
    SendMessage(LB_RESETCONTENT);
}

int CListBox::GetCount() const
{
    return static_cast<int>(SendMessage(LB_GETCOUNT));
}

int CListBox::GetTextLen(int row) const
{
    return static_cast<int>(SendMessage(LB_GETTEXTLEN, static_cast<WPARAM>(row)));
}

bool CListBox::GetText(int row, CString& text) const
{
    const int length = GetTextLen(row);
    if (length < 0)
        return false;
    CString result;
    SendMessage(LB_GETTEXT, static_cast<WPARAM>(row),
                reinterpret_cast<LPARAM>(result.GetBuffer(length)));
    result.ReleaseBuffer(length);
    text = result;
    return true;
}

LPARAM CListBox::GetItemData(int row) const
{
    return SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(row));
}

bool CListBox::SetItemData(int row, LPARAM data)
{
    return SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(row), data) != LB_ERR;
}

int CListBox::GetCurSel() const
{
    return static_cast<int>(SendMessage(LB_GETCURSEL));
}

int CListBox::SetCurSel(int row)
{
    return static_cast<int>(SendMessage(LB_SETCURSEL, static_cast<WPARAM>(row)));
}

bool CListBox::GetSel(int row) const
{
    return SendMessage(LB_GETSEL, static_cast<WPARAM>(row)) > 0;
}

bool CListBox::SetSel(int row, bool select)
{
    return SendMessage(LB_SETSEL, select, row) != LB_ERR;
}

int CListBox::GetSelCount() const
{
    return static_cast<int>(SendMessage(LB_GETSELCOUNT));
}

std::vector<int> CListBox::GetSelItems() const
{
    const int count = GetSelCount();
    std::vector<int> rows(static_cast<std::size_t>(count > 0 ? count : 0));
    SendMessage(LB_GETSELITEMS, rows.size(), reinterpret_cast<LPARAM>(rows.data()));
    return rows;
}

int CListBox::GetCaretIndex() const
{
    return static_cast<int>(SendMessage(LB_GETCARETINDEX));
}

int CListBox::GetTopIndex() const
{
    return static_cast<int>(SendMessage(LB_GETTOPINDEX));
}

bool CListBox::SetTopIndex(int row)
{
    return SendMessage(LB_SETTOPINDEX, static_cast<WPARAM>(row)) != LB_ERR;
}

int CListBox::FindString(int after, const CString& start) const
{
    return static_cast<int>(
        SendMessage(LB_FINDSTRING, static_cast<WPARAM>(after), TextParameter(start)));
}

int CListBox::FindStringExact(int after, const CString& text) const
{
    return static_cast<int>(
        SendMessage(LB_FINDSTRINGEXACT, static_cast<WPARAM>(after), TextParameter(text)));
}

int CListBox::SelectString(int after, const CString& start)
{
    return static_cast<int>(
        SendMessage(LB_SELECTSTRING, static_cast<WPARAM>(after), TextParameter(start)));
}

bool CListBox::SetTabStops(const std::vector<int>& stops)
{
    return SendMessage(LB_SETTABSTOPS, stops.size(), reinterpret_cast<LPARAM>(stops.data())) != 0;
}

void CListBox::SetHorizontalExtent(int width)
{
    SendMessage(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width));
}

int CListBox::GetHorizontalExtent() const
{
    return static_cast<int>(SendMessage(LB_GETHORIZONTALEXTENT));
}

bool CListBox::SetItemHeight(int row, UINT height)
{
    return SendMessage(LB_SETITEMHEIGHT, static_cast<WPARAM>(row), static_cast<LPARAM>(height)) !=
           LB_ERR;
}

int CListBox::GetItemHeight(int row) const
{
    return static_cast<int>(SendMessage(LB_GETITEMHEIGHT, static_cast<WPARAM>(row)));
}

bool CListBox::GetItemRect(int row, CRect& place) const
{
    return SendMessage(LB_GETITEMRECT, static_cast<WPARAM>(row),
                       reinterpret_cast<LPARAM>(&place)) != LB_ERR;
}

void CListBox::DrawItem(DRAWITEMSTRUCT*) {}

void CListBox::MeasureItem(MEASUREITEMSTRUCT*) {}

int CListBox::VKeyToItem(UINT, UINT)
{
    return -1;
}

LRESULT CListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    // What the parent leaves to the list comes back to it.
    switch (message)
    {
    case WM_DRAWITEM:
        DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_MEASUREITEM:
        MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_VKEYTOITEM:
        return VKeyToItem(static_cast<UINT>(wParam & 0xFFFF), static_cast<UINT>(wParam >> 16));
    default:
        return CWnd::WindowProc(message, wParam, lParam);
    }
}

} // namespace utility
