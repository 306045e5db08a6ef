#include "database/ColumnFilter.h"

#include "database/ColumnNumbers.h"
#include "database/LowerCased.h"
#include "platform/base/CaseFold.h"
#include "platform/db/ValueText.h"

#include <algorithm>

namespace utility
{

CColumnFilter::CColumnFilter(const CDBClientFilter& filter, CColumnNumbers& numbers)
    : m_Filter(filter),
      m_Numbers(numbers),
      m_Column(numbers.GetColumn()),
      m_IsNullMatch(filter.IsMatch(CString()))
{
}

bool CColumnFilter::IsMatch(std::size_t row)
{
    if (!m_Column.HasNumber(row))
    {
        const CDbValue value = m_Column.Get(row);
        return value.IsNull ? m_IsNullMatch : m_Filter.IsMatch(FormatValue(value));
    }
    const std::size_t number = m_Column.GetNumber(row);
    if (!m_Filter.IsNumeric())
        return IsTextMatch(number);
    const CCellNumber cell = m_Numbers.Get(number);
    const CDBClientFilter::EVerdict verdict = m_Filter.MatchParsed(cell.m_Result, cell.m_Number);
    return verdict == CDBClientFilter::EVerdict::ByText ? IsTextMatch(number)
                                                        : verdict == CDBClientFilter::EVerdict::Yes;
}

bool CColumnFilter::IsTextMatch(std::size_t number)
{
    while (m_TextVerdicts.GetSize() <= number)
        m_TextVerdicts.Add(ETextVerdict::Unknown);
    ETextVerdict& verdict = m_TextVerdicts[number];
    if (verdict == ETextVerdict::Unknown)
        verdict = m_Filter.MatchText(LowerText(m_Column.GetValue(number))) ? ETextVerdict::Yes
                                                                           : ETextVerdict::No;
    return verdict == ETextVerdict::Yes;
}

/// Texts of plain ASCII, as nearly all are, cost no string of their own.
std::u16string_view CColumnFilter::LowerText(const CDbValue& value)
{
    const auto isAscii = [](char byte)
    {
        return static_cast<unsigned char>(byte) < 0x80;
    };
    if (value.Kind != EValueKind::Text || !std::ranges::all_of(value.Bytes, isAscii))
    {
        m_Lowered = LowerCased(FormatValue(value)).View();
        return m_Lowered;
    }
    m_Lowered.resize(value.Bytes.size());
    std::ranges::transform(value.Bytes, m_Lowered.begin(),
                           [](char byte) { return ToLower(static_cast<unsigned char>(byte)); });
    return m_Lowered;
}

} // namespace utility
