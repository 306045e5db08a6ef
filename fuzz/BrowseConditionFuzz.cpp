#include "utility/db/browse/BrowseCondition.h"

#include "database/DBClientFilter.h"
#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"
#include "platform/base/Encoding.h"

#include "Require.h"

#include <cstdint>

using namespace utility;

namespace
{

const std::vector<CBrowseColumn>& Columns()
{
    static const std::vector<CBrowseColumn> columns = {
        {u"Value", u"Part value", PARSE_RESISTOR},
        {u"Part", u"Part", PARSE_ANY},
        {u"a=b", u"between"},
        {u"", u""},
    };
    return columns;
}

} // namespace

/// Any words are a condition or a fault with its reason, never both; a condition can be tested.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString words = FromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    CBrowseCondition condition;
    CString fault;
    if (!ReadBrowseCondition(words, Columns(), condition, fault))
    {
        Require(!fault.IsEmpty() && condition.m_Words.IsEmpty() && condition.m_Column == -1);
        return 0;
    }
    Require(fault.IsEmpty() && condition.m_Column < static_cast<int>(Columns().size()));
    if (condition.m_Column < 0)
        return 0;
    const CQueryTest& test = condition.m_Test;
    Require(test.m_Operator >= 0 && test.m_Operator < FILTER_OPERATOR_COUNT);
    Require(IsRangeOperator(test.m_Operator) || test.m_Value2.IsEmpty());
    const CBrowseColumn& column = Columns()[static_cast<std::size_t>(condition.m_Column)];
    Require(test.m_Column == column.m_Name);
    const CDBClientFilter filter(test.m_Column, test.m_Operator, test.m_Value1, test.m_Value2,
                                 column.m_ParseType);
    if (test.m_Operator == FILTER_CONTAINS)
        Require(filter.IsMatch(u"x" + test.m_Value1));
    return 0;
}
