#include "dialogs/ControlText.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/UserInterface.h"
#include "platform/system/window/Wnd.h"
#include "resources/StringTable.h"

namespace utility
{

void SetCtrlText(CWnd& dialog, UINT id, UINT stringId)
{
    if (CWnd* control = dialog.GetDlgItem(static_cast<int>(id)))
        control->SetWindowText(CStringTable::Get(stringId));
}

bool TextTooLongForControl(const CString& text, const CWnd& control)
{
    constexpr double COUNTED_PART = 0.9;
    const int width = GetUserInterface().GetTextWidth(text, &control);
    return static_cast<int>(COUNTED_PART * width) > control.GetClientRect().Width();
}

} // namespace utility
