#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// Makes every unit from 128 up a plain one, by its low byte: accents fall off, the rest becomes
/// "_". True if anything was changed.
UTILITY_CORE_API bool StringToAscii(CString& text);

UTILITY_CORE_API bool IsAsciiString(const CString& text);

/// Index of the first unit from 128 up, or -1.
UTILITY_CORE_API int FirstNonAsciiChar(const CString& text);

/// Index of the next one behind `index`, or -1.
UTILITY_CORE_API int NextNonAsciiChar(const CString& text, int index);

/// Makes every unit from 128 up "U+" and four hexadecimal digits: "é" becomes "U+00E9".
UTILITY_CORE_API void ToEncodedAscii(CString& text);

} // namespace utility
