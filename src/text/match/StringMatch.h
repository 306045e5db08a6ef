#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CString;

/// Whether the whole of `text` fits `pattern`, in the language that users type into filters.
///
///     *      any run of characters               %c %C   a letter; an upper-case one
///     ?      one character                       %d      a digit
///     a|b    alternatives                        %i      an integer
///     %{a|b%}     a group of them                %f      a real number, with . or ,
///     %^a%^b      not a directly before b        %a %A   a word; all upper case
///     %[a:f%]     a letter of a range            %s %S   letters and digits; letters upper case
///     %[1.5:20%]  a number of a range            %u      a length unit's name
///     %#     the empty text, as whole pattern    %p %P   an SI prefix; in upper case, too
///
/// A special character in the text is met by the same character in the pattern before that takes
/// its own meaning. A malformed pattern does not match. The case flag rules plain characters alone;
/// items keep their own case rules.
///
///     pattern          text     fits
///     "R%i"            "R12"    yes
///     "%C%i"           "c12"    no
///     "%[10:20%]"      "15.5"   yes
///     "%^abc%^"        "abd"    yes
///     "%d1|%d2"        "52"     no     an item that begins an alternative is final
///     "%{%d1|%d2%}"    "52"     yes    a group walks its own
///     "%{a*%}"         "a"      no     * takes nothing unless it ends the alternative
///
/// No pattern is slow: time is bounded by pattern length x text length and there is no limit to
/// either. Null pointers count as empty. Any thread.
UTILITY_CORE_API bool StringMatch(const char16_t* pattern, const char16_t* text,
                                  bool caseSensitive);

/// The same, and `residue` receives the characters that * and ? took, in text order.
///
/// Characters taken on ways that failed later stay in front of the others: after "*abc" has met
/// "abc" the residue is "abc". It ends after its first 65,536 units.
UTILITY_CORE_API bool StringMatchWithResidue(const char16_t* pattern, const char16_t* text,
                                             CString& residue, bool caseSensitive);

} // namespace utility
