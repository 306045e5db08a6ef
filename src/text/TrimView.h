#pragma once

#include "platform/base/CharacterClass.h"

#include <string_view>

namespace utility
{

/// The text without outer blanks, as `CString::Trim` cuts them, and without a copy.
inline std::u16string_view TrimView(std::u16string_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace utility
