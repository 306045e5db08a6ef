#include "text/match/StringMatch.h"

#include "platform/base/String.h"
#include "text/match/PlainPattern.h"
#include "text/match/RecentPatterns.h"
#include "text/match/WildcardMatcher.h"

namespace utility
{

namespace
{

/// Calls `match` with the pattern made ready.
template <typename TMatch>
bool WithPattern(const char16_t* pattern, bool caseSensitive, const TMatch& match)
{
    const CWildcardPattern* const recent = GetRecentPattern(pattern, caseSensitive);
    return recent ? match(*recent) : match(CWildcardPattern(pattern, caseSensitive));
}

} // namespace

bool StringMatch(const char16_t* pattern, const char16_t* text, bool caseSensitive)
{
    pattern = pattern ? pattern : u"";
    text = text ? text : u"";
    if (const std::optional<bool> plain = MatchPlainPattern(pattern, text, caseSensitive))
        return *plain;
    return WithPattern(pattern, caseSensitive,
                       [text](const CWildcardPattern& ready)
                       { return CWildcardMatcher(ready, text, nullptr).Match(); });
}

bool StringMatchWithResidue(const char16_t* pattern, const char16_t* text, CString& residue,
                            bool caseSensitive)
{
    pattern = pattern ? pattern : u"";
    text = text ? text : u"";
    return WithPattern(pattern, caseSensitive,
                       [text, &residue](const CWildcardPattern& ready)
                       {
                           CMatchResidue taken(text);
                           CWildcardMatcher matcher(ready, text, &taken);
                           const bool matches = matcher.Match();
                           taken.Write(matcher.GetResidue(), residue);
                           return matches;
                       });
}

} // namespace utility
