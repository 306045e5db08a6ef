#pragma once

#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <string_view>

namespace utility
{

/// Bytes on one line of a binary block's data.
constexpr UINT FORM_BINARY_LINE = 40;

/// Two upper-case hexadecimal digits for each byte, one blank between.
CString FormBinaryLine(const BYTE* bytes, UINT count);

/// The byte that a data token stands for: its first two units as hexadecimal digits of either case,
/// any other unit counting as 0. A token of one unit leaves the byte 0.
BYTE FormBinaryByte(std::u16string_view token);

} // namespace utility
