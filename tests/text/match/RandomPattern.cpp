#include "text/match/RandomPattern.h"

#include <iterator>

namespace utility
{

namespace
{

constexpr std::u16string_view ANY = u"aAbBmM1290.,k\u00E9\u00C9%|*?";
constexpr std::u16string_view LETTERS = u"abmzABMZ";
constexpr std::u16string_view CAPITALS = u"ABMZ";
constexpr std::u16string_view DIGITS = u"01259";
constexpr std::size_t TEXT_LIMIT = 12;

constexpr std::u16string_view UNIT_NAMES[] = {u"inch", u"\"", u"thou", u"m",    u"metre",
                                              u"mm",   u"um", u"cm",   u"mils", u"mil"};
constexpr std::u16string_view BOUNDS[] = {u"0",   u"1",  u"0.5", u"2,5", u"10",
                                          u"100", u".2", u"99",  u"5."};

} // namespace

void CRandomPattern::Next()
{
    m_Pattern.clear();
    m_Text.clear();
    m_CaseSensitive = Chance(50);
    if (Chance(10))
        AddStray();
    AddPieces(0, 5);
    while (Chance(20))
    {
        m_Pattern += u'|';
        if (Chance(40))
            m_Text.clear();
        const std::u16string text = m_Text;
        AddPieces(0, 3);
        if (!text.empty() && Chance(60))
            m_Text = text;
    }
    if (m_Text.size() > TEXT_LIMIT)
        m_Text.resize(TEXT_LIMIT);
    if (Chance(25))
        SpoilText();
}

void CRandomPattern::AddToText(std::u16string_view units, std::size_t least, std::size_t most)
{
    for (std::size_t count = least + Pick(most - least + 1); count > 0; --count)
        m_Text += PickUnit(units);
}

void CRandomPattern::AddPieces(int depth, std::size_t most)
{
    for (std::size_t count = 1 + Pick(most); count > 0; --count)
        AddPiece(depth);
}

void CRandomPattern::AddPiece(int depth)
{
    const std::size_t kind = Pick(100);
    if (kind < 40)
        AddPlain();
    else if (kind < 65)
        AddItem();
    else if (kind < 75)
        AddRange();
    else if (kind < 87 && depth < 3)
        AddGroup(depth);
    else if (kind < 96 && depth < 3)
        AddNegation(depth);
    else
        AddStray();
}

void CRandomPattern::AddPlain()
{
    const std::size_t kind = Pick(10);
    if (kind < 3)
    {
        m_Pattern += u'*';
        AddToText(ANY, 0, 3);
    }
    else if (kind < 4)
    {
        m_Pattern += u'?';
        AddToText(ANY, 1, 1);
    }
    else
    {
        const char16_t unit = PickUnit(ANY.substr(0, ANY.size() - 3));
        m_Pattern += unit;
        m_Text += unit == u'a' && Chance(30) ? u'A' : unit;
    }
}

void CRandomPattern::AddItem()
{
    const char16_t item = PickUnit(u"cCdDiIfFaAsSuUpP");
    const bool isCapital = item < u'a';
    m_Pattern += u'%';
    m_Pattern += item;
    switch (item | 0x20)
    {
    case u'c':
    case u'a':
        AddToText(isCapital ? CAPITALS : LETTERS, 1, (item | 0x20) == u'a' ? 3 : 1);
        break;
    case u's':
        AddToText(isCapital ? u"AZ19" : u"aZ19", 1, 3);
        break;
    case u'f':
        AddToText(DIGITS, 1, 2);
        AddToText(u".,", 0, 1);
        AddToText(DIGITS, 0, 2);
        break;
    case u'u':
        m_Text += UNIT_NAMES[Pick(std::size(UNIT_NAMES))];
        break;
    case u'p':
        AddToText(u"yzafpnumkMGTPEZY.NU", 1, 1);
        break;
    default:
        AddToText(DIGITS, 1, (item | 0x20) == u'i' ? 3 : 1);
        break;
    }
}

void CRandomPattern::AddRange()
{
    m_Pattern += u"%[";
    if (Chance(50))
    {
        m_Pattern += PickUnit(LETTERS);
        m_Pattern += Chance(95) ? u':' : u'-';
        m_Pattern += PickUnit(LETTERS);
        AddToText(LETTERS, 1, 1);
    }
    else
    {
        m_Pattern += BOUNDS[Pick(std::size(BOUNDS))];
        m_Pattern += u':';
        m_Pattern += BOUNDS[Pick(std::size(BOUNDS))];
        m_Text += BOUNDS[Pick(std::size(BOUNDS))];
    }
    if (Chance(95))
        m_Pattern += u"%]";
}

void CRandomPattern::AddGroup(int depth)
{
    m_Pattern += u"%{";
    const std::u16string before = m_Text;
    std::u16string chosen = before;
    for (std::size_t count = 1 + Pick(3); count > 0; --count)
    {
        m_Text = before;
        if (Chance(93))
            AddPieces(depth + 1, 2);
        if (count == 1 || Chance(40))
            chosen = m_Text;
        if (count > 1)
            m_Pattern += u'|';
    }
    m_Text = chosen;
    if (Chance(95))
        m_Pattern += u"%}";
}

void CRandomPattern::AddNegation(int depth)
{
    m_Pattern += u"%^";
    const std::u16string before = m_Text;
    AddPieces(depth + 1, 2);
    if (Chance(80))
        m_Text = before;
    AddToText(ANY, 0, 2);
    if (Chance(80))
        m_Pattern += Chance(90) ? u"%^" : u"|^";
}

void CRandomPattern::AddStray()
{
    static constexpr std::u16string_view STRAYS[] = {u"%",  u"|",  u"||", u"%}", u"%#",
                                                     u"%x", u"%^", u"%]", u"**", u"%{"};
    const std::u16string_view stray = STRAYS[Pick(std::size(STRAYS))];
    m_Pattern += stray;
    if (Chance(20))
        m_Text += stray;
}

/// One unit is taken out, put in or exchanged.
void CRandomPattern::SpoilText()
{
    const std::size_t place = Pick(m_Text.size() + 1);
    const std::size_t kind = Pick(3);
    if (kind != 0 && place < m_Text.size())
        m_Text.erase(place, 1);
    if (kind != 1)
        m_Text.insert(place, 1, PickUnit(ANY));
}

} // namespace utility
