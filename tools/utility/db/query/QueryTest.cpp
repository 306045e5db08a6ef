#include "utility/db/query/QueryTest.h"

#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"

#include "utility/db/map/ParseTypeName.h"

namespace utility
{

namespace
{

CString FindValueFault(const CString& value, int parseType)
{
    double number = 0;
    const int result = CDBFieldRules::GetNumericValue(value, number, parseType);
    if (result == 0)
    {
        const CString fault = u"'" + value + u"' is no number";
        return parseType == PARSE_NONE ? fault : fault + u" as " + GetParseTypeName(parseType);
    }
    if (result == 1 && parseType != PARSE_NONE)
        return u"the letters of '" + value + u"' do not suit " + GetParseTypeName(parseType);
    return CString();
}

} // namespace

bool IsRangeOperator(int op)
{
    return op == FILTER_BETWEEN || op == FILTER_NOT_BETWEEN;
}

bool IsTextOperator(int op)
{
    return op == FILTER_BEGINS || op == FILTER_CONTAINS || op == FILTER_NOT_BEGINS ||
           op == FILTER_NOT_CONTAINS;
}

CString FindTestFault(const CQueryTest& test, int parseType)
{
    const bool isRange = IsRangeOperator(test.m_Operator);
    if (IsTextOperator(test.m_Operator) || (parseType == PARSE_NONE && !isRange))
        return CString();
    const CString fault = FindValueFault(test.m_Value1, parseType);
    return fault.IsEmpty() && isRange ? FindValueFault(test.m_Value2, parseType) : fault;
}

bool LacksRule(const CQueryTest& test, int parseType, bool foundNothing)
{
    double number = 0;
    if (parseType != PARSE_NONE || IsTextOperator(test.m_Operator))
        return false;
    const int result = CDBFieldRules::GetNumericValue(test.m_Value1, number, PARSE_NONE);
    return result == 1 || (result == 2 && foundNothing);
}

} // namespace utility
