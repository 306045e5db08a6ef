#include "database/ColumnNumbers.h"

#include "database/DBFieldRules.h"
#include "platform/db/ValueText.h"

namespace utility
{

namespace
{

constexpr int SUITED = 2;
constexpr std::int64_t LAST_CODE = 999; // up to three digits may be a code, such as 104

} // namespace

CCellNumber ReadCellNumber(const CDbValue& value, int parseType)
{
    const bool isPlain = value.Kind == EValueKind::Integer && !value.IsNull &&
                         (value.Integer > LAST_CODE || value.Integer < -LAST_CODE);
    if (isPlain) // longer digits without letters are what they say by every type
        return {SUITED, static_cast<double>(value.Integer)};
    CCellNumber cell;
    cell.m_Result = CDBFieldRules::GetNumericValue(FormatValue(value), cell.m_Number, parseType);
    return cell;
}

void CColumnNumbers::Read(std::size_t number)
{
    while (m_Results.GetSize() <= number)
    {
        m_Results.Add(UNREAD);
        m_Numbers.Add(0);
    }
    const CCellNumber cell = ReadCellNumber(m_Column.GetValue(number), m_ParseType);
    m_Results[number] = static_cast<BYTE>(cell.m_Result);
    m_Numbers[number] = cell.m_Number;
}

} // namespace utility
