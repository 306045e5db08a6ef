#include "platform/ui/DialogItems.h"

#include "platform/base/String.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

namespace
{

constexpr UINT BUTTON_GETCHECK = 0x00F0; // BM_GETCHECK
constexpr UINT BUTTON_SETCHECK = 0x00F1; // BM_SETCHECK

} // namespace

CWnd* GetDlgItem(const CWnd& dialog, int id)
{
    return dialog.GetDlgItem(id);
}

bool EnableDlgItem(const CWnd& dialog, int id, bool enable)
{
    CWnd* control = dialog.GetDlgItem(id);
    if (control)
        control->EnableWindow(enable);
    return control != nullptr;
}

bool SetDlgItemText(const CWnd& dialog, int id, const CString& text)
{
    CWnd* control = dialog.GetDlgItem(id);
    if (control)
        control->SetWindowText(text);
    return control != nullptr;
}

CString GetDlgItemText(const CWnd& dialog, int id)
{
    const CWnd* control = dialog.GetDlgItem(id);
    return control ? control->GetWindowText() : CString();
}

UINT IsDlgButtonChecked(const CWnd& dialog, int id)
{
    const CWnd* control = dialog.GetDlgItem(id);
    return control ? static_cast<UINT>(control->SendMessage(BUTTON_GETCHECK)) : 0;
}

bool CheckDlgButton(const CWnd& dialog, int id, UINT state)
{
    const CWnd* control = dialog.GetDlgItem(id);
    if (control)
        control->SendMessage(BUTTON_SETCHECK, state);
    return control != nullptr;
}

} // namespace utility
