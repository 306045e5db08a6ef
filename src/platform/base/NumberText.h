#pragma once

#include "platform/base/Export.h"

#include <cstdint>

namespace utility
{

/// Numbers out of text with the classic results: leading blanks and one sign are taken, reading
/// stops at the first stranger, no number gives 0, and what does not fit saturates. Never
/// locale-dependent.
///
///     text            result
///     "  42x"         42
///     "99999999999"   2147483647 (32 bit)
///     "x"             0
UTILITY_CORE_API int _wtoi(const char16_t* text);
UTILITY_CORE_API std::int32_t _wtol(const char16_t* text);
UTILITY_CORE_API std::int64_t _wtoi64(const char16_t* text);
UTILITY_CORE_API double _wtof(const char16_t* text);

/// `end`, where given, receives the first unit not used; the text's start if there was no number.
/// Base 0 reads the prefixes 0x and 0; base 16 accepts a prefix 0x.
UTILITY_CORE_API std::int32_t wcstol(const char16_t* text, const char16_t** end, int base);
UTILITY_CORE_API std::int64_t _wcstoi64(const char16_t* text, const char16_t** end, int base);

/// Decimal point ".", exponent with e, E, d or D; out of range gives an infinity or 0.
UTILITY_CORE_API double wcstod(const char16_t* text, const char16_t** end);

/// Unsigned reading that wraps instead of saturating, as the scanning forms do: "-1" is 4294967295.
UTILITY_CORE_API std::uint32_t ReadUnsignedWrapped(const char16_t* text);

} // namespace utility
