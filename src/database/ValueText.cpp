#include "database/ValueText.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/NumberText.h"

#include <cmath>

namespace utility
{

namespace
{

constexpr std::u16string_view STOPS = u"|!$^&*()_[]{};:#<>@/";
constexpr char16_t MICRO_SIGN = 181; // the Greek letter mu is none

CString Cut(std::u16string_view text)
{
    CString copy(text);
    copy.Trim();
    return CString(copy.View().substr(0, copy.View().find_first_of(STOPS)));
}

// Reads the fraction that begins at `place`, whose character stands for the decimal point; the
// place behind it.
const char16_t* ReadFraction(CString& text, const char16_t* place, CValueText& pieces)
{
    const int index = static_cast<int>(place - text.GetString());
    text.SetAt(index, u'.');
    const char16_t* end = nullptr;
    pieces.m_Fraction = wcstod(text.GetString() + index, &end);
    return end;
}

void SplitLetters(std::u16string_view rest, CValueText& pieces)
{
    if (rest.empty())
    {
        pieces.m_Unit = pieces.m_Multiplier;
        pieces.m_Multiplier = 0;
        return;
    }
    while (!rest.empty() && IsSpace(rest.front()))
        rest.remove_prefix(1);
    if (rest.size() >= 2 && pieces.m_Multiplier == 0)
    {
        pieces.m_Multiplier = rest[0];
        pieces.m_Unit = rest[1];
    }
    else if (!rest.empty())
    {
        pieces.m_Unit = rest[0];
    }
}

double Digit(char16_t unit)
{
    return unit - u'0';
}

} // namespace

bool SplitValueText(std::u16string_view text, CValueText& pieces)
{
    pieces = CValueText();
    CString copy = Cut(text);
    const char16_t* place = nullptr;
    pieces.m_Whole = _wcstoi64(copy, &place, 10);
    if (place == copy.GetString())
        return false;

    const char16_t mark = *place;
    if (mark == u'.')
    {
        place = ReadFraction(copy, place, pieces);
    }
    else if (mark != 0 && IsDigit(place[1]))
    {
        if (mark != u',')
            pieces.m_Multiplier = mark;
        place = ReadFraction(copy, place, pieces);
    }
    SplitLetters(place, pieces);
    return true;
}

double ValueScale(char16_t letter, bool capacitive)
{
    switch (letter)
    {
    case u'M':
    case u'm':
        return capacitive ? 1e3 : 0;
    case u'R':
    case u'r':
        return capacitive ? 1e6 : 0;
    case u'U':
    case u'u':
    case MICRO_SIGN:
        return 1e6;
    case u'N':
    case u'n':
        return 1e9;
    case u'P':
    case u'p':
        return 1e12;
    default:
        return 0;
    }
}

// The digits alone are on another scale than the letter forms, on purpose: 104 is 0.1, 100n is
// 1E-7.
std::optional<double> ReadShortValueCode(std::u16string_view text, bool capacitive)
{
    if (text.size() != 3 || text.find_first_of(u".,") != text.npos)
        return std::nullopt;
    const bool first = IsDigit(text[0]);
    const bool second = IsDigit(text[1]);
    const bool third = IsDigit(text[2]);
    const auto divided = [capacitive](double value, char16_t letter, double factor = 1)
    {
        const double scale = ValueScale(letter, capacitive);
        return scale == 0 ? std::nullopt : std::optional(value / (scale * factor));
    };
    if (first && second && third)
    {
        if (!capacitive)
            return std::nullopt;
        return (Digit(text[0]) * 10 + Digit(text[1])) * std::pow(10.0, Digit(text[2])) / 1e6;
    }
    if (first && third)
        return divided(Digit(text[0]) + Digit(text[2]) / 10, text[1]);
    if (second && third)
        return divided(Digit(text[1]) * 10 + Digit(text[2]), text[0], 100);
    if (first && second)
        return divided(Digit(text[0]) * 10 + Digit(text[1]), text[2]);
    return std::nullopt;
}

} // namespace utility
