#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CString;

/// Reads an arithmetic expression at `start` and gives the index of the first unit that is no part
/// of it.
///
/// Operands are those of `ReadRealNumber`, operators + - * / and parentheses. Never fails: a
/// missing operand counts as 0, a missing `)` is tolerated, a spare one ends the expression, a
/// division by exactly 0 is left out. Sums are added from the right. Not schoolbook arithmetic
/// where parentheses are concerned; files in the field rely on it:
///
///     text             value    index
///     "6-4-2-1"        -1       7
///     "2+(1-3)*4"      -6       9     a tighter operator behind `)` acts on the parenthesis
///     "2+(5)*4"        28       7     but not on one with a single operand
///     "2-(1-3)*4+5"    5        11    and all that follows it is then part of that parenthesis
///     "5 mm"           5        2     blanks behind the number are used up
///     " (1+2)"         0        1     a blank before the first `(` hides it
///     "1/0"            1        3
///
/// Sums of any length are safe; beyond 1,000 open parentheses the expression ends.
UTILITY_CORE_API int EvaluateExpression(double& value, const CString& text, int start,
                                        char16_t decimalChar, bool onlyDecimalChar);

} // namespace utility
