#pragma once

#include "platform/base/String.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace utility
{

/// A component value cut into its pieces: "3,3 PF" is 3, 0.3, P and F.
struct CValueText
{
    std::int64_t m_Whole = 0;
    double m_Fraction = 0;
    char16_t m_Multiplier = 0; // 0 for none
    char16_t m_Unit = 0;       // 0 for none
};

/// False if the text does not begin with a number.
///
/// A letter or comma may stand in place of the decimal point. Text from any of |!$^&*()_[]{};:#<>@/
/// on is not read.
bool SplitValueText(std::u16string_view text, CValueText& pieces);

/// What a multiplier letter divides by, 0 if it is none; `capacitive` lets M and R count as milli
/// and micro.
double ValueScale(char16_t letter, bool capacitive);

/// The value of a code of three characters, such as 4n7, n47, 47n or, only where `capacitive`, the
/// digits 104.
std::optional<double> ReadShortValueCode(std::u16string_view text, bool capacitive);

} // namespace utility
