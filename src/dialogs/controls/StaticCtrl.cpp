#include "dialogs/controls/StaticCtrl.h"

#include "dialogs/ControlText.h"
#include "platform/base/String.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CStaticCtrl, CStatic)

void CStaticCtrl::SetText(const CString& text)
{
    if (GetWindowText() != text)
        SetWindowText(text);
}

bool CStaticCtrl::SetText(UINT id)
{
    CString text;
    if (!text.LoadString(id))
        return false;
    SetText(text);
    return true;
}

bool CStaticCtrl::IsTextTooLong() const
{
    return TextTooLongForControl(GetWindowText(), *this);
}

} // namespace utility
