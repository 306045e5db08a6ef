#pragma once

#include "platform/base/String.h"

namespace utility
{

/// One test of a column's values, as a user asks for it.
struct CQueryTest
{
    CString m_Column;
    int m_Operator = 0; // one of EFilterOperator
    CString m_Value1;
    CString m_Value2; // of the two range operators
};

/// Between and Is not between, which take two values.
bool IsRangeOperator(int op);

/// The operators that compare texts whatever they mean.
bool IsTextOperator(int op);

/// What keeps a test by value from ever matching, by the rule of its column; empty for a sound one.
///
///     Value Between 4k7 lots    resistor    'lots' is no number as resistor
///     Value Equal to 10uF       resistor    the letters of '10uF' do not suit resistor
///     Value Equal to 1N4148     none        nothing: it compares as it can
CString FindTestFault(const CQueryTest& test, int parseType);

/// Whether a test of a column of texts was likely meant by values, while no rule says how they are
/// read: a number with letters finds none with letters, and any number may find nothing.
bool LacksRule(const CQueryTest& test, int parseType, bool foundNothing);

} // namespace utility
