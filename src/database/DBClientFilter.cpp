#include "database/DBClientFilter.h"

#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"
#include "database/LowerCased.h"
#include "platform/base/CaseFold.h"
#include "platform/base/UnitSearch.h"

namespace utility
{

namespace
{

FilterValue ReadValue(const CString& text, int parseType)
{
    FilterValue result;
    result.m_Text = LowerCased(text);
    result.m_IsNumeric = CDBFieldRules::GetNumericValue(text, result.m_Value, result.m_Multiplier,
                                                        result.m_Unit, parseType) != 0;
    return result;
}

bool IsTextOperator(int op)
{
    return op == FILTER_BEGINS || op == FILTER_CONTAINS || op == FILTER_NOT_BEGINS ||
           op == FILTER_NOT_CONTAINS;
}

bool IsRangeOperator(int op)
{
    return op == FILTER_BETWEEN || op == FILTER_NOT_BETWEEN;
}

} // namespace

CDBClientFilter::CDBClientFilter(const CString& fieldName, int op, const CString& value1,
                                 const CString& value2, int parseType)
    : m_FieldName(fieldName),
      m_Operator(op),
      m_Value1(ReadValue(value1, parseType)),
      m_Value2(ReadValue(value2, parseType)),
      m_ParseType(parseType)
{
    m_UseNumeric = !IsTextOperator(op) && m_Value1.m_IsNumeric;
    if (!m_UseNumeric)
        return;
    if (IsRangeOperator(op))
    {
        m_UseNumeric = m_Value2.m_IsNumeric;
        if (m_UseNumeric && m_Value1.m_Value > m_Value2.m_Value)
            std::swap(m_Value1, m_Value2);
    }
    NarrowParseType();
}

void CDBClientFilter::NarrowParseType()
{
    if (m_ParseType != PARSE_ANY || m_Value1.m_Unit.IsEmpty())
        return;
    switch (ToLower(m_Value1.m_Unit[0]))
    {
    case u'f':
        m_ParseType = PARSE_CAPACITOR;
        break;
    case u'k':
    case u'm':
    case u'r':
        m_ParseType = PARSE_RESISTOR;
        break;
    default:
        break;
    }
}

bool CDBClientFilter::IsMatch(const CString& text) const
{
    int result = 0;
    double number = 0;
    if (IsNumeric())
        result = CDBFieldRules::GetNumericValue(text, number, m_ParseType);
    const EVerdict verdict = MatchParsed(result, number);
    return verdict == EVerdict::ByText ? MatchText(LowerCased(text).View())
                                       : verdict == EVerdict::Yes;
}

CDBClientFilter::EVerdict CDBClientFilter::MatchParsed(int result, double number) const
{
    if (!IsNumeric())
        return EVerdict::ByText;
    if (result == 2 || (result == 1 && m_ParseType == PARSE_ANY))
        return MatchNumber(number) ? EVerdict::Yes : EVerdict::No;
    return result == 0 && m_ParseType == PARSE_ANY ? EVerdict::ByText : EVerdict::No;
}

// Equal means bit for bit, in the order in which the rules compute: "2n2" and "2200p" differ.
bool CDBClientFilter::MatchNumber(double cell) const
{
    switch (m_Operator)
    {
    case FILTER_EQUAL:
        return cell == m_Value1.m_Value;
    case FILTER_NOT_EQUAL:
        return cell != m_Value1.m_Value;
    case FILTER_GREATER:
        return cell > m_Value1.m_Value;
    case FILTER_GREATER_OR_EQUAL:
        return cell >= m_Value1.m_Value;
    case FILTER_LESS:
        return cell < m_Value1.m_Value;
    case FILTER_LESS_OR_EQUAL:
        return cell <= m_Value1.m_Value;
    case FILTER_BETWEEN:
        return m_Value1.m_Value <= cell && cell <= m_Value2.m_Value;
    case FILTER_NOT_BETWEEN:
        return cell < m_Value1.m_Value || cell > m_Value2.m_Value;
    default:
        return false;
    }
}

bool CDBClientFilter::MatchText(std::u16string_view lowered) const
{
    const std::u16string_view value =
        units::View(m_Value1.m_Text.GetString()); // up to a NUL, if it has one
    switch (m_Operator)
    {
    case FILTER_EQUAL:
        return CompareUnits(lowered, value) == 0;
    case FILTER_NOT_EQUAL:
        return CompareUnits(lowered, value) != 0;
    case FILTER_GREATER:
        return CompareUnits(lowered, value) > 0;
    case FILTER_GREATER_OR_EQUAL:
        return CompareUnits(lowered, value) >= 0;
    case FILTER_LESS:
        return CompareUnits(lowered, value) < 0;
    case FILTER_LESS_OR_EQUAL:
        return CompareUnits(lowered, value) <= 0;
    case FILTER_BEGINS:
        return lowered.starts_with(m_Value1.m_Text.View());
    case FILTER_CONTAINS:
        return units::Find(lowered, value, 0) != units::NOT_FOUND;
    case FILTER_NOT_BEGINS:
        return !lowered.starts_with(m_Value1.m_Text.View());
    case FILTER_NOT_CONTAINS:
        return units::Find(lowered, value, 0) == units::NOT_FOUND;
    default:
        return false;
    }
}

} // namespace utility
