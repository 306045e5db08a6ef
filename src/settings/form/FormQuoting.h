#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <string>
#include <string_view>

namespace utility
{

/// Appends a text as it stands between the quotes of form text.
///
///     text          written
///     say "no"      say \"no\"
///     C:\new        C:\\new      only with `escapeEscapes`
///     CR, LF        \r \n
///     ( alone       \(           so that it is not read as structure; likewise a lone end
void AppendProtectedFormText(std::u16string& result, std::u16string_view text,
                             std::u16string_view formStart, std::u16string_view formEnd,
                             bool escapeEscapes);

/// Undoes doubled escapes and protected quotes, in one pass; any other escape stays with the unit
/// behind it, and so does one at the very end. Appends to `result`.
void UnescapeFormText(std::u16string_view text, char16_t quote, char16_t escape, CString& result);

/// Resolves what reading leaves of a protected text: \n \r \( \) become their characters; any other
/// backslash stays.
UTILITY_CORE_API CString ResolveFormLineEnds(const CString& text);

} // namespace utility
