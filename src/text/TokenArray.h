#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

class CStringArray;

/// Cuts a text into tokens and appends these; returns their number. Without separator or quote: 0.
///
/// The text is trimmed, and so is each token; a quoted one only with `trimQuoted`. A token is
/// quoted if the quote stands right behind the separator; a doubled quote inside is a single one.
///
///     separator , quote "
///     a, b ,c      "a" "b" "c"
///     "a,b",c      "a,b" "c"
///     a, "b,c"     "a" ""b" "c""    a blank before the quote
///     a,b,         "a" "b"
UTILITY_CORE_API int StringToTokenArray(const CString* text, CStringArray* tokens,
                                        char16_t separator, char16_t quote, bool trimQuoted);

/// Appends the tokens to the text, each followed by the separator, and returns their number.
///
/// With `wantQuotes` each stands between `quote` and `closeQuote` (0 means `quote`), and a quote
/// inside is doubled. No tokens, or a separator or quote of 0: 0, and the text is left alone.
UTILITY_CORE_API int TokenArrayToString(CString* text, const CStringArray* tokens,
                                        char16_t separator, char16_t quote, char16_t closeQuote,
                                        bool wantQuotes);

/// Takes out the empty rows, or with `trim` also those of blanks alone; returns how many.
UTILITY_CORE_API int RemoveEmptyStrings(CStringArray* array, bool trim);

} // namespace utility
