#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <string>
#include <string_view>

namespace utility
{

/// Texts of the settings store as exported files hold them: a unit that cannot stand there is
/// written as "_x", its number in four hexadecimal digits, and "_".
///
///     name          written               of an element or form: letters, digits, "-", ".", "_",
///     Grid          Grid                  the first one a letter or "_"; beyond ASCII the letters
///     1st size      _x0031_st_x0020_size  that every edition of XML knows
///     a_x0041_      a_x005F_x0041_      what looks like an escape has its "_" escaped
///     (empty)       _                   the name of a key's default value
///     _             _x005F_
///
///     text          written             of a value: all but controls, halves of pairs, marks, and
///     a b           a b                 blanks at its ends
///     " a"          _x0020_a
UTILITY_CORE_API std::u16string EscapeSettingsName(std::u16string_view name);
UTILITY_CORE_API std::u16string EscapeSettingsText(std::u16string_view text);

/// The unit as an escape.
UTILITY_CORE_API void AppendSettingsEscape(std::u16string& out, char16_t unit);

/// Undoes the escapes; whatever is none stands for itself.
UTILITY_CORE_API CString UnescapeSettingsText(std::u16string_view text);
/// Also reads "_" alone as the empty name.
UTILITY_CORE_API CString UnescapeSettingsName(std::u16string_view name);

} // namespace utility
