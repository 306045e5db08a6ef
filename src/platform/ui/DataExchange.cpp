#include "platform/ui/DataExchange.h"

#include "platform/base/String.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/DialogItems.h"
#include "platform/ui/DialogKeys.h"

#include <charconv>

namespace utility
{

namespace
{

/// All of the text must be the number; `value` keeps its preset if it is none.
template <typename TNumber>
bool ReadNumber(const CString& text, TNumber& value)
{
    CString trimmed = text;
    trimmed.Trim();
    std::string digits;
    for (const char16_t unit : trimmed.View())
        digits.push_back(unit < 0x80 ? static_cast<char>(unit) : '?');
    if (digits.starts_with('+'))
        digits.erase(0, 1);
    TNumber number{};
    const char* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc() || rest != end)
        return false;
    value = number;
    return true;
}

template <typename TNumber>
CString WriteNumber(TNumber value)
{
    char digits[32];
    const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), value);
    return CString(
        std::u16string(static_cast<const char*>(digits), static_cast<const char*>(end)).c_str());
}

template <typename TNumber>
void ExchangeNumber(CDataExchange& exchange, int id, TNumber& value)
{
    CWnd* control = exchange.PrepareEditCtrl(id);
    if (!control)
        return;
    if (!exchange.m_bSaveAndValidate)
        control->SetWindowText(WriteNumber(value));
    else if (!ReadNumber(control->GetWindowText(), value))
        exchange.Fail();
}

} // namespace

CWnd* CDataExchange::PrepareCtrl(int id)
{
    CWnd* control = m_pDlgWnd->GetDlgItem(id);
    m_LastControl = control ? control->GetSafeHwnd() : nullptr;
    m_IsLastEdit = false;
    return control;
}

CWnd* CDataExchange::PrepareEditCtrl(int id)
{
    CWnd* control = PrepareCtrl(id);
    m_IsLastEdit = true;
    return control;
}

void CDataExchange::Fail()
{
    if (CWnd* control = CWnd::FromHandle(m_LastControl))
    {
        if (m_IsLastEdit)
            FocusControl(*control);
        else
            control->SetFocus();
    }
    throw CFailure();
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control)
{
    if (!exchange->m_bSaveAndValidate && !control.GetSafeHwnd() && exchange->PrepareCtrl(id))
        control.SubclassDlgItem(static_cast<UINT>(id), exchange->m_pDlgWnd);
}

void DDX_Text(CDataExchange* exchange, int id, CString& value)
{
    CWnd* control = exchange->PrepareEditCtrl(id);
    if (!control)
        return;
    if (exchange->m_bSaveAndValidate)
        value = control->GetWindowText();
    else
        control->SetWindowText(value);
}

void DDX_Text(CDataExchange* exchange, int id, int& value)
{
    ExchangeNumber(*exchange, id, value);
}

void DDX_Text(CDataExchange* exchange, int id, UINT& value)
{
    ExchangeNumber(*exchange, id, value);
}

void DDX_Text(CDataExchange* exchange, int id, double& value)
{
    ExchangeNumber(*exchange, id, value);
}

void DDX_Check(CDataExchange* exchange, int id, int& value)
{
    if (!exchange->PrepareCtrl(id))
        return;
    if (exchange->m_bSaveAndValidate)
        value = static_cast<int>(IsDlgButtonChecked(*exchange->m_pDlgWnd, id));
    else
        CheckDlgButton(*exchange->m_pDlgWnd, id, static_cast<UINT>(value));
}

void DDX_Check(CDataExchange* exchange, int id, bool& value)
{
    int state = value;
    DDX_Check(exchange, id, state);
    value = state != 0;
}

} // namespace utility
