#include "text/match/StringMatch.h"

#include "platform/base/String.h"
#include "text/match/PlainPattern.h"
#include "text/match/WildcardMatcher.h"

namespace utility
{

namespace
{

/// The one pattern for the empty text; inside a longer pattern %# is no item.
bool IsEmptyMatch(std::u16string_view pattern, std::u16string_view text)
{
    return text.empty() && pattern.compare(u"%#") == 0;
}

} // namespace

bool StringMatch(const char16_t* pattern, const char16_t* text, bool caseSensitive)
{
    pattern = pattern ? pattern : u"";
    text = text ? text : u"";
    if (const std::optional<bool> plain = MatchPlainPattern(pattern, text, caseSensitive))
        return *plain;
    if (IsEmptyMatch(pattern, text))
        return true;
    return CWildcardMatcher(pattern, text, caseSensitive, nullptr).Match();
}

bool StringMatchWithResidue(const char16_t* pattern, const char16_t* text, CString& residue,
                            bool caseSensitive)
{
    pattern = pattern ? pattern : u"";
    text = text ? text : u"";
    if (IsEmptyMatch(pattern, text))
    {
        residue.Empty();
        return true;
    }
    CMatchResidue taken(text);
    CWildcardMatcher matcher(pattern, text, caseSensitive, &taken);
    const bool matches = matcher.Match();
    taken.Write(matcher.GetResidue(), residue);
    return matches;
}

} // namespace utility
