#include "text/names/RandomNameScript.h"

namespace utility
{

namespace
{

constexpr const char16_t* STEMS[] = {u"R", u"r", u"C", u"U1A", u"R 1 ", u"5", u"", u"\u00E9"};
constexpr const char16_t* PREFIXES[] = {u"R", u"r", u"R1", u"R0", u"R 1 ", u"C", u"U1A", u"5", u""};
constexpr const char16_t* TAILS[] = {u"", u"", u"", u"A", u"a", u"2", u" ", u"A2"};
constexpr const char16_t* ODD[] = {u"IC", u"ic", u"R", u"99999999999", u"2147483646", u"0"};
constexpr CNameRangeRules RULES[] = {{},
                                     {u'<', u'>', u':', u';'},
                                     {u'(', u')', u',', u' '},
                                     {u'{', u'}', u'-', u'|'},
                                     {u'A', u'Z', u'-', u','}};

} // namespace

void CRandomNameScript::Next()
{
    m_Rules = RULES[Chance(60) ? 0 : Pick(std::size(RULES))];
    m_Rules.m_CaseSensitive = Chance(30);
    m_Rules.m_Ordered = Chance(40);
    m_Steps = {{EStep::Set, MakeText()}};
    for (std::size_t left = 2 + Pick(8); left > 0; --left)
    {
        const std::size_t dice = Pick(100);
        if (dice < 60)
            m_Steps.push_back({EStep::Add, MakeText()});
        else if (dice < 85)
            m_Steps.push_back({EStep::Delete, MakeText()});
        else
            m_Steps.push_back({EStep::Contains, MakeName()});
    }
}

std::u16string CRandomNameScript::MakeNumber(bool large)
{
    std::u16string digits;
    for (const char digit : std::to_string(large ? 95 + Pick(10) : Pick(14)))
        digits += static_cast<char16_t>(digit);
    if (Chance(20))
        digits.insert(0, 1 + Pick(2), u'0');
    return digits;
}

std::u16string CRandomNameScript::MakeName()
{
    if (Chance(5))
        return PickOf(ODD);
    std::u16string name = Chance(60) ? u"R" : PickOf(STEMS);
    name += MakeNumber(Chance(15));
    return name + (Chance(70) ? u"" : PickOf(TAILS));
}

std::u16string CRandomNameScript::MakeSpan()
{
    std::u16string span = Chance(60) ? u"R" : PickOf(PREFIXES);
    span += m_Rules.m_Start;
    const bool large = Chance(15);
    if (Chance(10))
        span += MakeNumber(large) + u",";
    span += MakeNumber(large);
    span += m_Rules.m_Between;
    span += MakeNumber(large) + m_Rules.m_End;
    return span + (Chance(70) ? u"" : PickOf(TAILS));
}

std::u16string CRandomNameScript::MakeText()
{
    std::u16string text;
    for (std::size_t left = 1 + Pick(3); left > 0; --left)
    {
        if (!text.empty())
            text += m_Rules.m_Item;
        text += Chance(65) ? MakeName() : MakeSpan();
    }
    if (Chance(5))
        Spoil(text);
    return text;
}

/// A mark or blank where none belongs, or one unit less.
void CRandomNameScript::Spoil(std::u16string& text)
{
    const char16_t marks[] = {m_Rules.m_Start, m_Rules.m_End, m_Rules.m_Between, m_Rules.m_Item,
                              u' '};
    const std::size_t place = Pick(text.size());
    if (Chance(50))
        text.insert(place, 1, marks[Pick(std::size(marks))]);
    else
        text.erase(place, 1);
}

} // namespace utility
