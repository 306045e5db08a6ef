#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// How a filter compares a cell with its value. The numbers are kept in settings.
enum EFilterOperator : int
{
    FILTER_EQUAL = 0,
    FILTER_NOT_EQUAL = 1,
    FILTER_GREATER = 2,
    FILTER_GREATER_OR_EQUAL = 3,
    FILTER_LESS = 4,
    FILTER_LESS_OR_EQUAL = 5,
    FILTER_BEGINS = 6, // text only, as the next
    FILTER_CONTAINS = 7,
    FILTER_BETWEEN = 8,    // two numbers
    FILTER_NOT_BEGINS = 9, // text only, as the next
    FILTER_NOT_CONTAINS = 10,
    FILTER_NOT_BETWEEN = 11, // two numbers
    FILTER_OPERATOR_COUNT
};

/// The operator's words, such as "Begins with"; empty for any other number. Any thread.
UTILITY_CORE_API const CString& GetFilterOperatorName(int op);

} // namespace utility
