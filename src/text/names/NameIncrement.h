#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CString;

// The next name after a name, in the ways that the suite needs. None fails; numbers are those of
// `CNameRange::GetStem` unless told otherwise.

/// "R9" gives "R10", "R09" "R10", "A1B" "A2B", "R" "R1".
UTILITY_CORE_API CString Increment(const CString& name);

/// A name with text behind its number is not renumbered: "A1B" gives "A1B1", "Bold2" "Bold3".
UTILITY_CORE_API CString IncrementStyleName(const CString& name);

/// The last run of digits and dots with a digit in it rises or falls by one in its last place; a
/// `-` before it counts. Of any length.
///
///     text          up           down
///     "9.9"         "10.0"       "9.8"
///     "-1"          "0"          "-2"
///     "0"           "1"          "-1"
///     "1.2 rev."    "1.3 rev."   "1.1 rev."
///     "A."          "A.1"        "A-.1"       without a digit "0" is appended first
UTILITY_CORE_API void IncrementNumber(CString& text, bool up);

/// Counts in letters, with a carry: "Az" gives "Ba", "Zz" "AAa", "" "A". A digit at the end counts
/// as `IncrementNumber` does; what stands behind the last letter or digit stays.
UTILITY_CORE_API void IncrementString(CString& text);

/// The digits at the end of a path's file name, or of its extension, rise in their width; without
/// digits "1" is appended, and an empty part stays.
UTILITY_CORE_API void NextFileName(CString& path);
UTILITY_CORE_API void NextFileExtn(CString& path);

} // namespace utility
