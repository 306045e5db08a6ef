#pragma once

#include "platform/base/Export.h"

namespace utility
{

/// The special characters of patterns, fixed for good; callers ask for them here.
///
///     *        any run of characters             |        next alternative
///     ?        exactly one character             %        begins an item
///     %{ %}    group of alternatives             %^ %^    negation
///     %#       the empty text, alone             %[a:z%]  range of letters or numbers
constexpr char16_t GetWildAnyChar()
{
    return u'*';
}
constexpr char16_t GetWildOrChar()
{
    return u'|';
}
constexpr char16_t GetWildFormatChar()
{
    return u'%';
}
/// The letters behind the format character.
constexpr char16_t GetWildOpenChar()
{
    return u'{';
}
constexpr char16_t GetWildCloseChar()
{
    return u'}';
}
constexpr char16_t GetWildNotChar()
{
    return u'^';
}
constexpr char16_t GetWildEmptyChar()
{
    return u'#';
}
constexpr void GetWildRangeChars(char16_t& format, char16_t& open, char16_t& close,
                                 char16_t& separator, char16_t& alternative)
{
    format = u'%';
    open = u'[';
    close = u']';
    separator = u':';
    alternative = u'|';
}

/// Whether the text holds any of * ? | %, and so is a pattern rather than a plain name.
UTILITY_CORE_API bool IsWildString(const char16_t* text);

/// Units up to the next alternative's |, looked for from the second unit on.
///
///     text      result
///     "ab|c"    2
///     "|b|c"    2      a | in first place does not stop it
///     "abc"     3      none: the length
///     ""        0
UTILITY_CORE_API int NextOrString(const char16_t* text);

} // namespace utility
