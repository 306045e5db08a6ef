#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <span>
#include <string_view>
#include <vector>

namespace utility
{

/// Bytes as capital letters: A plus the low nibble, then A plus the high one.
///
///     01 1f    "BAPB"
UTILITY_CORE_API CString BytesToLetters(std::span<const BYTE> bytes);

/// A letter counts as its distance from A, of which the low 4 bits; an odd last letter is dropped.
UTILITY_CORE_API std::vector<BYTE> LettersToBytes(std::u16string_view letters);

} // namespace utility
