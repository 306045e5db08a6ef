#pragma once

#include "platform/base/String.h"

namespace utility
{

// The short names of parse types at the command line: capacitor, resistor, inductor, any, number.

/// -1 for any other name; case does not matter.
int FindParseType(const CString& name);

/// Empty for PARSE_NONE.
CString GetParseTypeName(int type);

} // namespace utility
