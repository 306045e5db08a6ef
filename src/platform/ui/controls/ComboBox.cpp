#include "platform/ui/controls/ComboBox.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/controls/ComboBoxMessages.h"

namespace utility
{

namespace
{

constexpr CRowMessages MESSAGES{
    CB_ADDSTRING,    CB_INSERTSTRING, CB_DELETESTRING,    CB_RESETCONTENT, CB_GETCOUNT,
    CB_GETLBTEXTLEN, CB_GETLBTEXT,    CB_GETITEMDATA,     CB_SETITEMDATA,  CB_GETCURSEL,
    CB_SETCURSEL,    CB_FINDSTRING,   CB_FINDSTRINGEXACT, CB_SELECTSTRING};

} // namespace

IMPLEMENT_DYNAMIC(CComboBox, CRowsControl)

CComboBox::CComboBox() : CRowsControl(u"COMBOBOX", MESSAGES) {}

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

} // namespace utility
