#include "platform/ui/controls/ListBox.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/controls/ListBoxMessages.h"

namespace utility
{

namespace
{

constexpr CRowMessages MESSAGES{
    LB_ADDSTRING,  LB_INSERTSTRING, LB_DELETESTRING,    LB_RESETCONTENT, LB_GETCOUNT,
    LB_GETTEXTLEN, LB_GETTEXT,      LB_GETITEMDATA,     LB_SETITEMDATA,  LB_GETCURSEL,
    LB_SETCURSEL,  LB_FINDSTRING,   LB_FINDSTRINGEXACT, LB_SELECTSTRING};

} // namespace

IMPLEMENT_DYNAMIC(CListBox, CRowsControl)

CListBox::CListBox() : CRowsControl(u"ListBox", MESSAGES) {}

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

int CListBox::VKeyToItem(UINT, UINT)
{
    return -1;
}

LRESULT CListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_VKEYTOITEM) // the parent left it to the list
        return VKeyToItem(static_cast<UINT>(wParam & 0xFFFF), static_cast<UINT>(wParam >> 16));
    return CRowsControl::WindowProc(message, wParam, lParam);
}

} // namespace utility
