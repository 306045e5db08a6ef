#pragma once

#include "platform/base/String.h"
#include "platform/db/DbValue.h"

namespace utility
{

/// A value as a grid shows it: NULL empty, numbers in the shortest plain digits without exponent,
/// dates in the user's form, a bit as 1 or 0, bytes one a unit.
CString FormatValue(const CDbValue& value);

/// What ReadInteger and ReadReal do with a value of another kind than the number's own.
bool ConvertToInteger(const CDbValue& value, std::int64_t& number);
bool ConvertToReal(const CDbValue& value, double& number);

/// The whole or real number that a value stands for, read from its text if need be; false where it
/// is none.
inline bool ReadInteger(const CDbValue& value, std::int64_t& number)
{
    if (value.Kind != EValueKind::Integer)
        return ConvertToInteger(value, number);
    number = value.Integer;
    return true;
}

inline bool ReadReal(const CDbValue& value, double& number)
{
    if (value.Kind != EValueKind::Real)
        return ConvertToReal(value, number);
    number = value.Real;
    return true;
}

} // namespace utility
