#include "text/match/LiteralMatcher.h"

#include <cfloat>
#include <cmath>
#include <cstdlib>

namespace utility
{

namespace
{

struct CTooManySteps
{
};

bool IsLetter(char16_t c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}
bool IsNumeral(char16_t c)
{
    return c >= u'0' && c <= u'9';
}
bool IsCapital(char16_t c)
{
    return (c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE);
}
char16_t Raise(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= 0xE0 && c <= 0xFE) ? static_cast<char16_t>(c - 32) : c;
}

constexpr const char16_t* UNIT_NAMES[] = {u"inch", u"\"", u"thou", u"thou",   u"metre",
                                          u"m",    u"mm", u"mm",   u"micron", u"um",
                                          u"cm",   u"cm", u"mils", u"mil"};
constexpr char16_t PREFIX_ROWS[] = u"yzafpnum.kMGTPEZY";

/// A number as ranges compare it.
struct CScaled
{
    double m_Mantissa;
    int m_Exponent;
};

CScaled ScaleNumber(const std::u16string& number)
{
    std::string narrow;
    for (char16_t c : number)
        narrow += c == u',' ? '.' : static_cast<char>(c);
    const double value = std::strtod(narrow.c_str(), nullptr);
    CScaled scaled{std::isinf(value) ? DBL_MAX : value, 0};
    while (scaled.m_Mantissa > 10)
    {
        scaled.m_Mantissa /= 10;
        scaled.m_Exponent++;
    }
    while (scaled.m_Mantissa != 0 && scaled.m_Mantissa < 1)
    {
        scaled.m_Mantissa *= 10;
        scaled.m_Exponent--;
    }
    return scaled;
}

int CompareScaled(const CScaled& a, const CScaled& b)
{
    if (a.m_Exponent != b.m_Exponent)
        return a.m_Exponent > b.m_Exponent ? 1 : -1;
    const double difference = a.m_Mantissa - b.m_Mantissa;
    if (std::fabs(difference) <= 2.220446049250313e-16)
        return 0;
    return difference > 0 ? 1 : -1;
}

class CLiteralMatcher
{
public:
    CLiteralMatcher(const std::u16string& text, bool caseSensitive, std::uint64_t stepLimit)
        : m_Text(text),
          m_CaseSensitive(caseSensitive),
          m_StepsLeft(stepLimit)
    {
    }

    bool Walk(const std::u16string& pattern, std::size_t p, std::size_t t, bool tryOr);
    std::u16string GetResidue() const
    {
        return std::u16string(m_ResidueFront.rbegin(), m_ResidueFront.rend()) + m_ResidueBack;
    }

private:
    enum class EItem
    {
        Refused, // before any call was made
        Failed,  // for good
        Matched
    };

    static char16_t At(const std::u16string& s, std::size_t i) { return i < s.size() ? s[i] : 0; }
    static bool Stands(const std::u16string& s, std::size_t i, char16_t letter)
    {
        return At(s, i) == u'%' && At(s, i + 1) == letter;
    }
    static EItem Outcome(bool matched) { return matched ? EItem::Matched : EItem::Failed; }

    // The three scans
    static std::size_t OverGroup(const std::u16string& pattern, std::size_t p);
    static std::size_t NextAlternative(const std::u16string& pattern, std::size_t p);
    static std::size_t AfterGroup(const std::u16string& pattern, std::size_t p);
    static std::size_t EndOfNegation(const std::u16string& pattern, std::size_t p);
    static bool IsFound(const std::u16string& pattern, std::size_t p)
    {
        return p < pattern.size() && !Stands(pattern, p, u'}');
    }

    bool WalkAtEnd(const std::u16string& pattern, std::size_t p, std::size_t t);
    bool TryNext(const std::u16string& pattern, std::size_t failed, std::size_t t, bool tryOr);
    EItem WalkItem(const std::u16string& pattern, std::size_t p, std::size_t t,
                   std::size_t& failed);
    EItem WalkNumber(const std::u16string& pattern, std::size_t p, std::size_t t, bool separator);
    EItem WalkWord(const std::u16string& pattern, std::size_t p, std::size_t t, bool digits,
                   bool capital);
    EItem WalkUnit(const std::u16string& pattern, std::size_t p, std::size_t t);
    EItem WalkPrefix(const std::u16string& pattern, std::size_t p, std::size_t t, bool capital);
    EItem WalkRange(const std::u16string& pattern, std::size_t p, std::size_t t);
    EItem WalkGroup(const std::u16string& pattern, std::size_t p, std::size_t t,
                    std::size_t& failed);
    EItem WalkNegation(const std::u16string& pattern, std::size_t p, std::size_t t);
    static std::u16string ReadNumber(const std::u16string& s, std::size_t i);

    const std::u16string& m_Text;
    bool m_CaseSensitive;
    std::uint64_t m_StepsLeft;
    bool m_Negated = false;
    std::u16string m_ResidueFront; // its last unit first: units are put in front by the 100,000
    std::u16string m_ResidueBack;
};

/// From a %{ to behind the first %} after it.
std::size_t CLiteralMatcher::OverGroup(const std::u16string& pattern, std::size_t p)
{
    const std::size_t closing = pattern.find(u"%}", p + 2);
    return closing == std::u16string::npos ? pattern.size() : closing + 2;
}

std::size_t CLiteralMatcher::NextAlternative(const std::u16string& pattern, std::size_t p)
{
    while (p < pattern.size())
    {
        if (pattern[p] == u'|')
            return p + 1;
        if (Stands(pattern, p, u'}'))
            return p;
        p = Stands(pattern, p, u'{') ? OverGroup(pattern, p) : p + 1;
    }
    return pattern.size();
}

std::size_t CLiteralMatcher::AfterGroup(const std::u16string& pattern, std::size_t p)
{
    p = NextAlternative(pattern, p);
    while (p < pattern.size() && !Stands(pattern, p, u'}'))
        p = NextAlternative(pattern, p + 1);
    return p < pattern.size() ? p + 2 : p;
}

std::size_t CLiteralMatcher::EndOfNegation(const std::u16string& pattern, std::size_t p)
{
    while (p < pattern.size() && pattern[p] != u'|' && !Stands(pattern, p, u'}') &&
           !Stands(pattern, p, u'^'))
        p = Stands(pattern, p, u'{') ? OverGroup(pattern, p) : p + 1;
    return p;
}

bool CLiteralMatcher::Walk(const std::u16string& pattern, std::size_t p, std::size_t t, bool tryOr)
{
    if (m_StepsLeft-- == 0)
        throw CTooManySteps();

    const char16_t unit = At(pattern, p);
    // 1: a star with nothing behind it
    if (unit == u'*' && (p + 1 == pattern.size() || pattern[p + 1] == u'|'))
    {
        m_ResidueBack += m_Text.substr(t);
        return true;
    }
    // 2: the text has ended
    if (t == m_Text.size())
        return WalkAtEnd(pattern, p, t);
    // 3: equal units, star, question mark
    const bool eq = unit == m_Text[t] || (!m_CaseSensitive && Raise(unit) == Raise(m_Text[t]));
    if (eq || unit == u'*' || unit == u'?')
    {
        bool matched = Walk(pattern, p + 1, t + 1, false);
        if (!matched && unit == u'*')
        {
            matched = Walk(pattern, p, t + 1, false);
            if (!matched)
                matched = Walk(pattern, p + 1, t, false);
        }
        if (!eq)
            m_ResidueFront += m_Text[t];
        return matched || TryNext(pattern, p, t, tryOr);
    }
    // 4: the alternative just walked has ended
    if (unit == u'|')
        return Walk(pattern, AfterGroup(pattern, p), t, true);
    // 5: items
    if (unit == u'%')
    {
        std::size_t failed = p + 1;
        const EItem outcome = WalkItem(pattern, p, t, failed);
        if (outcome == EItem::Refused)
            return TryNext(pattern, failed, t, tryOr);
        return outcome == EItem::Matched;
    }
    // 6: anything else
    return TryNext(pattern, p, t, tryOr);
}

bool CLiteralMatcher::WalkAtEnd(const std::u16string& pattern, std::size_t p, std::size_t t)
{
    if (p == pattern.size())
        return true;
    if (pattern[p] == u'|' || Stands(pattern, p, u'}'))
        return Walk(pattern, AfterGroup(pattern, p), t, true);
    if (Stands(pattern, p, u'{'))
        return Walk(pattern, p + 2, t, false);
    if (Stands(pattern, p, u'^'))
        return m_Negated;
    if (pattern[p] == u'*' && At(pattern, p + 1) == u'*')
        return Walk(pattern, p + 1, t, false);
    return false;
}

/// 7: the next alternative
bool CLiteralMatcher::TryNext(const std::u16string& pattern, std::size_t failed, std::size_t t,
                              bool tryOr)
{
    if (!tryOr)
        return false;
    const std::size_t next = NextAlternative(pattern, failed);
    return IsFound(pattern, next) && Walk(pattern, next, t, true);
}

CLiteralMatcher::EItem CLiteralMatcher::WalkItem(const std::u16string& pattern, std::size_t p,
                                                 std::size_t t, std::size_t& failed)
{
    const char16_t c = m_Text[t];
    switch (At(pattern, p + 1))
    {
    case u'c':
        return IsLetter(c) ? Outcome(Walk(pattern, p + 2, t + 1, false)) : EItem::Refused;
    case u'C':
        return IsLetter(c) && IsCapital(c) ? Outcome(Walk(pattern, p + 2, t + 1, false))
                                           : EItem::Refused;
    case u'd':
    case u'D':
        return IsNumeral(c) ? Outcome(Walk(pattern, p + 2, t + 1, false)) : EItem::Refused;
    case u'i':
    case u'I':
        return WalkNumber(pattern, p, t, false);
    case u'f':
    case u'F':
        return WalkNumber(pattern, p, t, true);
    case u'a':
    case u'A':
        return WalkWord(pattern, p, t, false, pattern[p + 1] == u'A');
    case u's':
    case u'S':
        return WalkWord(pattern, p, t, true, pattern[p + 1] == u'S');
    case u'u':
    case u'U':
        return WalkUnit(pattern, p, t);
    case u'p':
    case u'P':
        return WalkPrefix(pattern, p, t, pattern[p + 1] == u'P');
    case u'[':
        return WalkRange(pattern, p, t);
    case u'{':
        return WalkGroup(pattern, p, t, failed);
    case u'}':
        return Outcome(Walk(pattern, p + 2, t, false));
    case u'^':
        return WalkNegation(pattern, p, t);
    default:
        return EItem::Refused;
    }
}

CLiteralMatcher::EItem CLiteralMatcher::WalkNumber(const std::u16string& pattern, std::size_t p,
                                                   std::size_t t, bool separator)
{
    if (!IsNumeral(At(m_Text, t)))
        return EItem::Refused;
    for (;;)
    {
        const char16_t c = At(m_Text, t);
        if (!IsNumeral(c))
        {
            if (!separator || (c != u'.' && c != u','))
                return EItem::Failed;
            separator = false;
        }
        ++t;
        if (Walk(pattern, p + 2, t, false))
            return EItem::Matched;
    }
}

CLiteralMatcher::EItem CLiteralMatcher::WalkWord(const std::u16string& pattern, std::size_t p,
                                                 std::size_t t, bool digits, bool capital)
{
    bool called = false;
    for (;;)
    {
        const char16_t c = At(m_Text, t);
        const bool inClass = IsLetter(c) || (digits && IsNumeral(c));
        if (!inClass || (capital && IsLetter(c) && !IsCapital(c)))
            return called ? EItem::Failed : EItem::Refused;
        ++t;
        called = true;
        if (Walk(pattern, p + 2, t, false))
            return EItem::Matched;
    }
}

CLiteralMatcher::EItem CLiteralMatcher::WalkUnit(const std::u16string& pattern, std::size_t p,
                                                 std::size_t t)
{
    bool called = false;
    for (const std::u16string name : UNIT_NAMES)
    {
        if (m_Text.compare(t, name.size(), name) != 0)
            continue;
        called = true;
        if (Walk(pattern, p + 2, t + name.size(), false))
            return EItem::Matched;
    }
    return called ? EItem::Failed : EItem::Refused;
}

CLiteralMatcher::EItem CLiteralMatcher::WalkPrefix(const std::u16string& pattern, std::size_t p,
                                                   std::size_t t, bool capital)
{
    const char16_t c = m_Text[t];
    for (const char16_t* row = PREFIX_ROWS; *row != 0; ++row)
    {
        if (*row != c && !(capital && *row >= u'a' && *row <= u'z' && *row - 32 == c))
            continue;
        return *row == u'.' ? EItem::Refused : Outcome(Walk(pattern, p + 2, t + 1, false));
    }
    return EItem::Refused;
}

/// Digits, then a separator and more digits, all of which may be missing.
std::u16string CLiteralMatcher::ReadNumber(const std::u16string& s, std::size_t i)
{
    std::u16string number;
    while (IsNumeral(At(s, i)))
        number += s[i++];
    if (At(s, i) == u'.' || At(s, i) == u',')
    {
        number += s[i++];
        while (IsNumeral(At(s, i)))
            number += s[i++];
    }
    return number;
}

CLiteralMatcher::EItem CLiteralMatcher::WalkRange(const std::u16string& pattern, std::size_t p,
                                                  std::size_t t)
{
    const char16_t c = m_Text[t];
    p += 2;
    if (IsLetter(c))
    {
        const char16_t a = At(pattern, p);
        const char16_t b = At(pattern, p + 2);
        if (!IsLetter(a) || At(pattern, p + 1) != u':' || !IsLetter(b) ||
            !Stands(pattern, p + 3, u']'))
            return EItem::Refused;
        const bool strictlyBetween = (a < c && c < b) || (b < c && c < a);
        if (c == a || c == b || (IsCapital(c) == IsCapital(a) && strictlyBetween))
            return Outcome(Walk(pattern, p + 5, t + 1, false));
        return EItem::Refused;
    }
    const std::u16string number = ReadNumber(m_Text, t);
    const std::u16string low = ReadNumber(pattern, p);
    if (number.empty() || low.empty() || At(pattern, p + low.size()) != u':')
        return EItem::Refused;
    p += low.size() + 1;
    const std::u16string high = ReadNumber(pattern, p);
    if (high.empty() || !Stands(pattern, p + high.size(), u']'))
        return EItem::Refused;
    const int toLow = CompareScaled(ScaleNumber(number), ScaleNumber(low));
    const int toHigh = CompareScaled(ScaleNumber(number), ScaleNumber(high));
    if (toLow != 0 && toHigh != 0 && toLow != -toHigh)
        return EItem::Refused;
    return Outcome(Walk(pattern, p + high.size() + 2, t + number.size(), false));
}

CLiteralMatcher::EItem CLiteralMatcher::WalkGroup(const std::u16string& pattern, std::size_t p,
                                                  std::size_t t, std::size_t& failed)
{
    std::size_t alternative = p + 2;
    bool tryOr = false;
    do
    {
        if (Walk(pattern, alternative, t, tryOr))
            return EItem::Matched;
        tryOr = true;
        alternative = NextAlternative(pattern, alternative);
    } while (IsFound(pattern, alternative));
    failed = Stands(pattern, alternative, u'}') ? alternative + 2 : alternative;
    return EItem::Refused;
}

CLiteralMatcher::EItem CLiteralMatcher::WalkNegation(const std::u16string& pattern, std::size_t p,
                                                     std::size_t t)
{
    m_Negated = !m_Negated;
    bool result = Walk(pattern, p + 2, t, false);
    if (m_Negated)
        result = !result;
    m_Negated = !m_Negated;
    if (!result)
        return EItem::Failed;
    const std::size_t stop = EndOfNegation(pattern, p + 1);
    if (stop == pattern.size() || (pattern[stop] == u'|' && At(pattern, stop + 1) != u'^'))
        return EItem::Matched;
    return Outcome(Walk(u"*" + pattern.substr(stop + 2), 0, t, false));
}

} // namespace

std::optional<CLiteralMatch> MatchLiterally(const std::u16string& pattern,
                                            const std::u16string& text, bool caseSensitive,
                                            std::uint64_t stepLimit)
{
    if (text.empty() && pattern == u"%#")
        return CLiteralMatch{true, u""};
    CLiteralMatcher matcher(text, caseSensitive, stepLimit);
    try
    {
        const bool matches = matcher.Walk(pattern, 0, 0, true);
        return CLiteralMatch{matches, matcher.GetResidue()};
    }
    catch (const CTooManySteps&)
    {
        return std::nullopt;
    }
}

} // namespace utility
