#pragma once

#include "platform/base/Export.h"

#include <string_view>

namespace utility
{

/// The library's own case rule, the same in every locale.
///
///     to upper   a-z and 0xE0-0xFE less 0x20 (0xF7 folds onto 0xD7: kept)
///     to lower   A-Z and 0xC0-0xDE plus 0x20
constexpr char16_t ToUpper(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= 0xE0 && unit <= 0xFE)
               ? static_cast<char16_t>(unit - 0x20)
               : unit;
}

constexpr char16_t ToLower(char16_t unit)
{
    return (unit >= u'A' && unit <= u'Z') || (unit >= 0xC0 && unit <= 0xDE)
               ? static_cast<char16_t>(unit + 0x20)
               : unit;
}

/// Sign of the order of two texts by unsigned units.
UTILITY_CORE_API int CompareUnits(std::u16string_view left, std::u16string_view right);

/// Sign of the order of the two texts' lower-cased units, so "_" stands before the letters.
UTILITY_CORE_API int CompareNoCase(std::u16string_view left, std::u16string_view right);

UTILITY_CORE_API bool EqualNoCase(std::u16string_view left, std::u16string_view right);

} // namespace utility
