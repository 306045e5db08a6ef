#include "dialogs/FloatEdit.h"

#include "platform/base/String.h"
#include "platform/system/window/WindowMessages.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"
#include "text/numbers/RealNumber.h"

#include <algorithm>

namespace utility
{

IMPLEMENT_DYNAMIC(CFloatEdit, CEditCtrl)

bool CFloatEdit::GetValue(double& value) const
{
    if (!m_IsModified)
    {
        value = m_Value;
        return true;
    }
    double read = 0;
    if (ReadRealNumber(read, GetWindowText(), 0, u'.', false) < 1)
        return false;
    value = read;
    return true;
}

void CFloatEdit::SetValue(double value)
{
    CString text;
    text.Format(u"%.*f", m_Precision, value);
    SetWindowText(text);
    m_Value = value;
    m_ValueAsSet = value;
    m_IsModified = false;
    m_HasDifferentValues = false;
}

void CFloatEdit::SetValues(std::span<const double> values)
{
    const auto differs = [&values](double value)
    {
        return value != values.front();
    };
    if (std::ranges::any_of(values, differs))
        SetDifferentValues();
    else if (!values.empty())
        SetValue(values.front());
}

void CFloatEdit::SetDifferentValues()
{
    m_HasDifferentValues = true;
    m_Value = 0;
    m_IsModified = false;
    SetWindowText(CStringTable::Get(IDS_DIFFERENT));
}

bool CFloatEdit::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE)
        OnChange();
    return CEditCtrl::OnChildNotify(message, wParam, lParam, result);
}

void CFloatEdit::OnChange()
{
    m_IsModified = true;
    if (m_HasDifferentValues)
    {
        m_IsModified = GetWindowText() != CStringTable::Get(IDS_DIFFERENT);
        return;
    }
    double value = 0;
    if (GetValue(value))
        m_IsModified = value != m_ValueAsSet;
}

} // namespace utility
