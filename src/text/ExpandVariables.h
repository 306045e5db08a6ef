#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// The unit that encloses the name of a variable in a text. One for the process, to be set at
/// start-up.
UTILITY_CORE_API char16_t GetDefaultExpandVariableChar();
UTILITY_CORE_API char16_t GetExpandVariableChar();
UTILITY_CORE_API void SetExpandVariableChar(char16_t marker);

/// Puts the values of the environment in place of the names between two markers; the process's
/// marker by default.
///
///     HOME is x       result      returns
///     "%HOME%\a"      "x\a"       true
///     "%NOPE%\a"      "%NOPE%\a"  false   a name was not found
///     "100%"          "100%"      true    no second marker
///     "a%%b"          "ab"        true    no name, no text
///
/// A value is not looked through for further names.
UTILITY_CORE_API bool ExpandVariables(CString& text);
UTILITY_CORE_API bool ExpandVariables(CString& text, char16_t marker);

} // namespace utility
