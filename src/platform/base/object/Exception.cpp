#include "platform/base/object/Exception.h"

#include "platform/system/window/WinApp.h"

#include <algorithm>

namespace utility
{

IMPLEMENT_DYNAMIC(CException, CObject)

void CException::Delete()
{
    delete this;
}

CString CException::GetErrorText() const
{
    return CString();
}

BOOL CException::GetErrorMessage(char16_t* buffer, UINT capacity) const
{
    if (!buffer || capacity == 0)
        return FALSE;

    const CString text = GetErrorText();
    const std::u16string_view shown = text.View().substr(0, capacity - 1);
    *std::copy(shown.begin(), shown.end(), buffer) = 0;
    return text.IsEmpty() ? FALSE : TRUE;
}

int CException::ReportError(UINT type, UINT fallbackId) const
{
    const CString text = GetErrorText();
    return text.IsEmpty() ? AfxMessageBox(fallbackId, type) : AfxMessageBox(text, type);
}

} // namespace utility
