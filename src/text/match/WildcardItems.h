#pragma once

#include <cstdint>
#include <string_view>

namespace utility
{

/// Whether the unit is an SI prefix with an exponent; `capital` also takes the upper-case form.
bool IsWildPrefix(char16_t unit, bool capital);

/// The names that %u tries: each unit's name, then its short name.
constexpr std::uint8_t WILD_UNIT_NAMES = 14;
std::u16string_view GetWildUnitName(std::uint8_t index);

} // namespace utility
