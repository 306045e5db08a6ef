#include "dialogs/controls/EditCtrl.h"

#include "platform/base/String.h"
#include "platform/ui/ControlStyles.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CEditCtrl, CEdit)

bool CEditCtrl::IsReadOnly() const
{
    return (GetStyle() & ES_READONLY) != 0;
}

void CEditCtrl::SetText(const CString& text)
{
    if (GetWindowText() != text)
        SetWindowText(text);
}

} // namespace utility
