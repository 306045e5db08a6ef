#pragma once

#include "platform/base/String.h"
#include "platform/db/DbValue.h"

namespace utility
{

/// A value as a grid shows it: NULL empty, numbers in the shortest plain digits without exponent, dates in the user's
/// form, a bit as 1 or 0, bytes one a unit.
CString FormatValue(const CDbValue& value);

/// The 32-bit whole or real number that a value stands for, read from its text if need be; false where it is none.
bool ReadInteger(const CDbValue& value, std::int64_t& number);
bool ReadReal(const CDbValue& value, double& number);

} // namespace utility
