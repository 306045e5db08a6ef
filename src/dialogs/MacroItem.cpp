#include "dialogs/MacroItem.h"

#include "dialogs/DialogControls.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Button.h"
#include "platform/ui/controls/ComboBoxMessages.h"

namespace utility
{

namespace
{

enum class EItem
{
    Other,
    Edit,
    Combo,
    Mark, // a check or radio button
    Push
};

EItem KindOf(const CWnd& control)
{
    const CString className = control.GetClassName();
    if (className.CompareNoCase(u"EDIT") == 0)
        return EItem::Edit;
    if (className.CompareNoCase(u"COMBOBOX") == 0)
        return EItem::Combo;
    if (className.CompareNoCase(u"Button") != 0)
        return EItem::Other;
    const DWORD type = control.GetStyle() & BS_TYPEMASK;
    if (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON)
        return EItem::Push;
    return type == BS_GROUPBOX || type == BS_OWNERDRAW ? EItem::Other : EItem::Mark;
}

void TellParent(const CWnd& control, UINT code)
{
    if (const CWnd* parent = control.GetParent())
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(control.GetDlgCtrlID(), static_cast<int>(code)),
                            reinterpret_cast<LPARAM>(control.GetSafeHwnd()));
}

bool ReplayCombo(CWnd& combo, const CString& value)
{
    const LRESULT row = combo.SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                          reinterpret_cast<LPARAM>(value.GetString()));
    const bool takesAnyText = (combo.GetStyle() & CBS_TYPEMASK) != CBS_DROPDOWNLIST;
    if (row < 0 && !takesAnyText)
        return false;
    if (row >= 0)
        combo.SendMessage(CB_SETCURSEL, static_cast<WPARAM>(row));
    else
        combo.SetWindowText(value);
    TellParent(combo, row >= 0 ? CBN_SELCHANGE : CBN_EDITCHANGE);
    return true;
}

bool ReplayMark(const CWnd& button, const CString& value)
{
    const bool hasThirdState = (button.GetStyle() & BS_TYPEMASK) == BS_3STATE ||
                               (button.GetStyle() & BS_TYPEMASK) == BS_AUTO3STATE;
    const int highest = hasThirdState ? BST_INDETERMINATE : BST_CHECKED;
    if (value.GetLength() != 1 || value[0] < u'0' || value[0] > u'0' + highest)
        return false;
    button.SendMessage(BM_SETCHECK, static_cast<WPARAM>(value[0] - u'0'));
    TellParent(button, BN_CLICKED);
    return true;
}

} // namespace

bool GetMacroItemValue(const CWnd& control, CString& value)
{
    switch (KindOf(control))
    {
    case EItem::Edit:
    case EItem::Combo:
        value = control.GetWindowText();
        return true;
    case EItem::Mark:
        value.Format(u"%d", static_cast<int>(control.SendMessage(BM_GETCHECK)));
        return true;
    case EItem::Push:
        value.Empty();
        return true;
    case EItem::Other:
        break;
    }
    return false;
}

bool ReplayMacroItem(CWnd& control, const CString& value)
{
    if (!control.IsWindowEnabled())
        return false;
    switch (KindOf(control))
    {
    case EItem::Edit:
        if (!IsCtrlWritable(control))
            return false;
        control.SetWindowText(value);
        return true;
    case EItem::Combo:
        return ReplayCombo(control, value);
    case EItem::Mark:
        return ReplayMark(control, value);
    case EItem::Push:
        control.SendMessage(BM_CLICK);
        return true;
    case EItem::Other:
        break;
    }
    return false;
}

} // namespace utility
