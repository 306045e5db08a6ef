#include "text/match/PlainPattern.h"

#include "platform/base/CaseFold.h"
#include "text/match/WildcardChars.h"

namespace utility
{

namespace
{

template <bool CaseSensitive>
char16_t Fold(char16_t unit)
{
    return CaseSensitive ? unit : ToUpper(unit);
}

bool IsEnd(char16_t unit)
{
    return unit == 0 || unit == GetWildOrChar();
}

/// One alternative against the whole text. Only the last star met needs another try: what stands
/// in front of it fits already, and no earlier star could reach further.
template <bool CaseSensitive>
std::optional<bool> MatchAlternative(const char16_t* pattern, const char16_t* text)
{
    const char16_t* behindStar = nullptr;
    const char16_t* starText = nullptr;
    while (*text != 0)
    {
        if (*pattern == u'*')
        {
            behindStar = ++pattern;
            starText = text;
            if (IsEnd(*pattern))
                return true;
        }
        else if (IsEnd(*pattern) && *text == GetWildOrChar())
        {
            return std::nullopt; // the | of the text meets the pattern's: a plain unit here
        }
        else if (!IsEnd(*pattern) &&
                 (*pattern == u'?' || Fold<CaseSensitive>(*pattern) == Fold<CaseSensitive>(*text)))
        {
            ++pattern;
            ++text;
        }
        else if (behindStar)
        {
            pattern = behindStar;
            text = ++starText;
        }
        else
        {
            return false;
        }
    }
    while (*pattern == u'*')
        ++pattern;
    return IsEnd(*pattern);
}

template <bool CaseSensitive>
std::optional<bool> MatchAlternatives(const char16_t* pattern, const char16_t* text)
{
    for (;;)
    {
        const std::optional<bool> result = MatchAlternative<CaseSensitive>(pattern, text);
        // An empty text, or an empty alternative, ends the search.
        if (result != false || *text == 0 || IsEnd(*pattern))
            return result;
        while (!IsEnd(*pattern))
            ++pattern;
        if (*pattern == 0 || *++pattern == 0)
            return false; // an empty last alternative is none
    }
}

} // namespace

std::optional<bool> MatchPlainPattern(const char16_t* pattern, const char16_t* text,
                                      bool caseSensitive)
{
    for (const char16_t* unit = pattern; *unit != 0; ++unit)
    {
        if (*unit == GetWildFormatChar())
            return std::nullopt;
    }
    return caseSensitive ? MatchAlternatives<true>(pattern, text)
                         : MatchAlternatives<false>(pattern, text);
}

} // namespace utility
