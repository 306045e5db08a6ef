#include "text/match/StringMatch.h"

#include "platform/base/String.h"
#include "text/match/PlainPattern.h"
#include "text/match/WildcardMatcher.h"

namespace utility
{

bool StringMatch(const char16_t* pattern, const char16_t* text, bool caseSensitive)
{
    pattern = pattern ? pattern : u"";
    text = text ? text : u"";
    if (const std::optional<bool> plain = MatchPlainPattern(pattern, text, caseSensitive))
        return *plain;
    return CWildcardMatcher(pattern, text, caseSensitive, nullptr).Match();
}

bool StringMatchWithResidue(const char16_t* pattern, const char16_t* text, CString& residue,
                            bool caseSensitive)
{
    pattern = pattern ? pattern : u"";
    text = text ? text : u"";
    CMatchResidue taken(text);
    CWildcardMatcher matcher(pattern, text, caseSensitive, &taken);
    const bool matches = matcher.Match();
    taken.Write(matcher.GetResidue(), residue);
    return matches;
}

} // namespace utility
