#pragma once

#include "platform/base/Export.h"

#include <span>

namespace utility
{

class CString;

/// A prefix as the pattern item %p knows it; y to Y, without the micro sign and the capital K.
struct CSIPrefix
{
    char16_t m_Character;
    int m_Exponent; // decimal; 0 for the row `.`, which is found and yet counts as no prefix
};

/// The prefix table in its order, without a closing row.
UTILITY_CORE_API std::span<const CSIPrefix> GetSIPrefixes();

/// The factor of the SI multiplier (a to E, with u, U+00B5 and K) that `text` begins with, and its
/// length.
///
///     text    factor   result
///     "uF"    1e-6     1
///     "K"     1e3      1
///     "Y"     1.0      0     this table ends at exa
UTILITY_CORE_API int ReadSIUnit(double& factor, const CString& text);

/// `value` divided by the factor of the row behind the first that is large enough, with that row's
/// name.
///
/// As asymmetric as it looks, and relied upon:
///
///     value   result       unitName
///     4700    0.0000047    "G"
///     0       0            "f"
///     -5      6e15         "f"    a negative value less one, counted in the second row
///     2e15    2e15         ""     above 1e15 the closing row
UTILITY_CORE_API double NormaliseSIUnit(double value, CString& unitName);

/// The normalised number without decimal places, at least three wide, and its unit name: "  0G".
UTILITY_CORE_API void NormaliseSIUnitString(double value, CString& text);

} // namespace utility
