#pragma once

#include <cstddef>
#include <string_view>

/// The coder between UTF-8 and UTF-16 behind Encoding.h: never fails, one step a byte.
namespace utility::utf8
{

/// A text never has more units than bytes, and at most three bytes a unit.
constexpr std::size_t BYTES_PER_UNIT = 3;

/// Writes the units of the bytes and gives their count; `text` has room for one unit a byte.
///
/// Each maximal piece that begins like a sequence but is none gives one U+FFFD.
std::size_t Decode(std::string_view bytes, char16_t* text);

/// What Decode would write.
std::size_t CountUnits(std::string_view bytes);

/// Writes the bytes of the text and gives their count; `bytes` has room for three bytes a unit.
///
/// A lone surrogate is written as EF BF BD.
std::size_t Encode(std::u16string_view text, char* bytes);

/// What Encode would write.
std::size_t CountBytes(std::u16string_view text);

/// Whether no piece of the bytes would be replaced.
bool IsWellFormed(std::string_view bytes);

} // namespace utility::utf8
