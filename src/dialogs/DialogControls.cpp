#include "dialogs/DialogControls.h"

#include "platform/base/LastError.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Edit.h"

namespace utility
{

namespace
{

bool HasClass(const CWnd& window, const char16_t* name)
{
    return window.GetClassName().CompareNoCase(name) == 0;
}

CWnd* FindControl(const CWnd& parent, UINT id)
{
    return parent.GetDlgItem(static_cast<int>(id));
}

} // namespace

void EnableCtrl(CWnd& parent, UINT id, bool enable)
{
    if (CWnd* control = FindControl(parent, id))
        control->EnableWindow(enable);
}

void ShowControl(CWnd& parent, UINT id)
{
    if (CWnd* control = FindControl(parent, id))
        control->ShowWindow(SW_SHOW);
}

void HideControl(CWnd& parent, UINT id)
{
    if (CWnd* control = FindControl(parent, id))
        control->ShowWindow(SW_HIDE);
}

void HideControl(CWnd& control, bool hide)
{
    control.ShowWindow(hide ? SW_HIDE : SW_SHOW);
    control.EnableWindow(!hide);
}

void ReselectControl(CWnd& control)
{
    const CLastErrorKeeper keeper;
    control.SetFocus();
    if (!HasClass(control, u"EDIT"))
        return;
    control.SendMessage(EM_SETSEL, 0, -1);
    control.SendMessage(EM_SCROLLCARET);
}

void ReselectControl(CWnd& parent, UINT id)
{
    if (CWnd* control = FindControl(parent, id))
        ReselectControl(*control);
}

bool IsDialog(const CWnd& window)
{
    return HasClass(window, u"#32770");
}

bool IsCtrlWritable(const CWnd& control)
{
    if (HasClass(control, u"EDIT"))
        return (control.GetStyle() & ES_READONLY) == 0;
    return HasClass(control, u"COMBOBOX");
}

} // namespace utility
