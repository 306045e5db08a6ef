#include "database/LiteralRules.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace literal
{

namespace
{

bool IsDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool IsBlank(char16_t unit)
{
    return unit == u' ' || (unit >= 9 && unit <= 13) || unit == 0x85 || unit == 0xA0;
}

bool IsEither(const std::u16string& letter, char16_t upper)
{
    return !letter.empty() && (letter[0] == upper || letter[0] == upper + 0x20);
}

double Scale(char16_t letter, bool capacitive)
{
    if (letter == u'M' || letter == u'm')
        return capacitive ? 1000.0 : 0.0;
    if (letter == u'R' || letter == u'r')
        return capacitive ? 1000000.0 : 0.0;
    if (letter == u'U' || letter == u'u' || letter == 181)
        return 1000000.0;
    if (letter == u'N' || letter == u'n')
        return 1000000000.0;
    if (letter == u'P' || letter == u'p')
        return 1000000000000.0;
    return 0.0;
}

bool ReadCode(const std::u16string& text, int type, double& value)
{
    if (text.size() != 3)
        return false;
    for (const char16_t unit : text)
        if (unit == u'.' || unit == u',')
            return false;
    const bool capacitive = type == 1 || type == 3;
    const bool d0 = IsDigit(text[0]);
    const bool d1 = IsDigit(text[1]);
    const bool d2 = IsDigit(text[2]);
    const double n0 = text[0] - u'0';
    const double n1 = text[1] - u'0';
    const double n2 = text[2] - u'0';

    if (d0 && d2 && !d1) // 4n7
    {
        const double divisor = Scale(text[1], capacitive);
        if (divisor == 0)
            return false;
        value = (n0 + n2 / 10.0) / divisor;
        return true;
    }
    if (d0 && d1 && d2) // 104
    {
        if (type == 4)
            return false;
        double power = 1;
        for (int step = 0; step < static_cast<int>(n2); ++step)
            power *= 10;
        value = (n0 * 10 + n1) * power / 1000000.0;
        return true;
    }
    if (d1 && d2 && !d0) // n47
    {
        const double divisor = Scale(text[0], capacitive);
        if (divisor == 0)
            return false;
        value = (n1 * 10 + n2) / (divisor * 100.0);
        return true;
    }
    if (d0 && d1 && !d2) // 47n
    {
        const double divisor = Scale(text[2], capacitive);
        if (divisor == 0)
            return false;
        value = (n0 * 10 + n1) / divisor;
        return true;
    }
    return false;
}

// A decimal integer: blanks, a sign, digits, held within 64 bits. False without digits; `place`
// stands behind it.
bool ReadWhole(const std::u16string& text, std::size_t& place, std::int64_t& whole)
{
    std::size_t at = 0;
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    std::string number;
    if (at < text.size() && (text[at] == u'+' || text[at] == u'-'))
        number += static_cast<char>(text[at++]);
    const std::size_t begin = at;
    while (at < text.size() && IsDigit(text[at]))
        number += static_cast<char>(text[at++]);
    if (at == begin)
        return false;
    whole = std::strtoll(number.c_str(), nullptr, 10);
    place = at;
    return true;
}

// "." and digits with an exponent, by the C library; `place` stays where there is none.
double ReadFraction(const std::u16string& text, std::size_t& place)
{
    std::string narrow;
    for (std::size_t at = place; at < text.size(); ++at)
        narrow += text[at] < 128 ? static_cast<char>(text[at]) : '?';
    char* end = nullptr;
    const double fraction = std::strtod(narrow.c_str(), &end);
    place += static_cast<std::size_t>(end - narrow.c_str());
    return fraction;
}

bool Split(const std::u16string& source, std::int64_t& whole, double& fraction,
           std::u16string& multiplier, std::u16string& unit)
{
    whole = 0;
    fraction = 0;
    multiplier.clear();
    unit.clear();

    // 1. Copy, trim, cut
    std::u16string text = source;
    while (!text.empty() && IsBlank(text.front()))
        text.erase(0, 1);
    while (!text.empty() && IsBlank(text.back()))
        text.pop_back();
    const std::size_t cut = text.find_first_of(u"|!$^&*()_[]{};:#<>@/");
    if (cut != std::u16string::npos)
        text.erase(cut);
    if (text.empty())
        return false;

    // 2. Whole number
    std::size_t place = 0;
    if (!ReadWhole(text, place, whole))
        return false;
    if (place == text.size())
        return true;

    // 3. to 5. Fraction
    const char16_t c = text[place];
    if (c == u'.')
        fraction = ReadFraction(text, place);
    else if (place + 1 < text.size() && IsDigit(text[place + 1]))
    {
        if (c != u',')
            multiplier = std::u16string(1, c);
        text[place] = u'.';
        fraction = ReadFraction(text, place);
    }

    // 6. and 7. Rest
    if (place == text.size())
    {
        if (!multiplier.empty())
        {
            unit = multiplier;
            multiplier.clear();
        }
        return true;
    }
    while (place < text.size() && IsBlank(text[place]))
        ++place;
    if (text.size() - place >= 2 && multiplier.empty())
    {
        multiplier = text.substr(place, 1);
        unit = text.substr(place + 1, 1);
    }
    else
    {
        unit = text.substr(place, 1);
    }
    return true;
}

std::u16string Lower(std::u16string text)
{
    for (char16_t& unit : text)
        if ((unit >= u'A' && unit <= u'Z') || (unit >= 0xC0 && unit <= 0xDE))
            unit = static_cast<char16_t>(unit + 0x20);
    return text;
}

bool MatchesAsNumber(int op, double cell, double first, double second)
{
    switch (op)
    {
    case 0:
        return cell == first;
    case 1:
        return !(cell == first);
    case 2:
        return cell > first;
    case 3:
        return cell >= first;
    case 4:
        return cell < first;
    case 5:
        return cell <= first;
    case 8:
        return first <= cell && cell <= second;
    case 11:
        return cell < first || cell > second;
    default:
        return false;
    }
}

bool MatchesAsText(int op, const std::u16string& cell, const std::u16string& value)
{
    const std::u16string lower = Lower(cell);
    switch (op)
    {
    case 0:
        return lower == value;
    case 1:
        return lower != value;
    case 2:
        return lower > value;
    case 3:
        return lower >= value;
    case 4:
        return lower < value;
    case 5:
        return lower <= value;
    case 6:
        return lower.rfind(value, 0) == 0;
    case 7:
        return lower.find(value) != std::u16string::npos;
    case 9:
        return lower.rfind(value, 0) != 0;
    case 10:
        return lower.find(value) == std::u16string::npos;
    default:
        return false;
    }
}

} // namespace

CNumber ReadNumber(const std::u16string& text, int type)
{
    CNumber number;
    if (text.find_first_of(u"0123456789") == std::u16string::npos)
        return number;
    if ((type == 1 || type == 3 || type == 4) && ReadCode(text, type, number.m_Value))
    {
        number.m_Result = 2;
        return number;
    }
    std::int64_t whole = 0;
    double fraction = 0;
    if (!Split(text, whole, fraction, number.m_Multiplier, number.m_Unit))
        return number;

    double value = static_cast<double>(whole) + fraction;
    int result = 1;
    const bool farads = IsEither(number.m_Unit, u'F') && (type == 4 || type == 1);
    const bool henries = IsEither(number.m_Unit, u'H') && (type == 4 || type == 3);
    if (number.m_Unit.empty() || type == 5)
    {
        result = 2;
    }
    else if (farads || henries)
    {
        const double scale = number.m_Multiplier.empty() ? 0 : Scale(number.m_Multiplier[0], true);
        if (scale != 0)
        {
            value /= scale;
            result = 2;
        }
        else if (number.m_Multiplier.empty())
        {
            result = 2;
        }
    }
    else
    {
        const double scale = Scale(number.m_Unit[0], type == 1 || type == 3);
        if (scale != 0)
        {
            value /= scale;
            if (type == 1 || type == 3 || type == 4)
                result = 2;
        }
        else if (IsEither(number.m_Unit, u'K') || IsEither(number.m_Unit, u'M') ||
                 IsEither(number.m_Unit, u'R'))
        {
            if (IsEither(number.m_Unit, u'K'))
                value *= 1000;
            if (IsEither(number.m_Unit, u'M'))
                value *= 1000000;
            if (type == 2 || type == 4)
                result = 2;
        }
        else if (type == 4)
        {
            result = 2;
        }
    }
    number.m_Value = value;
    number.m_Result = result;
    return number;
}

CFilter::CFilter(int op, const std::u16string& value1, const std::u16string& value2, int type)
    : m_Operator(op),
      m_Type(type),
      m_UseNumeric(false),
      m_First{Lower(value1), ReadNumber(value1, type)},
      m_Second{Lower(value2), ReadNumber(value2, type)}
{
    if (op == 6 || op == 7 || op == 9 || op == 10)
        return;
    m_UseNumeric = m_First.m_Number.m_Result != 0;
    if (!m_UseNumeric)
        return;
    if (op == 8 || op == 11)
    {
        if (m_Second.m_Number.m_Result == 0)
            m_UseNumeric = false;
        else if (m_First.m_Number.m_Value > m_Second.m_Number.m_Value)
            std::swap(m_First, m_Second);
    }
    const std::u16string unit = Lower(m_First.m_Number.m_Unit);
    if (m_Type == 4 && unit == u"f")
        m_Type = 1;
    else if (m_Type == 4 && (unit == u"k" || unit == u"m" || unit == u"r"))
        m_Type = 2;
}

bool CFilter::IsMatch(const std::u16string& cell) const
{
    if (m_UseNumeric)
    {
        const CNumber number = ReadNumber(cell, m_Type);
        if (number.m_Result == 2 || (number.m_Result == 1 && m_Type == 4))
            return MatchesAsNumber(m_Operator, number.m_Value, m_First.m_Number.m_Value,
                                   m_Second.m_Number.m_Value);
        if (!(number.m_Result == 0 && m_Type == 4))
            return false;
    }
    return MatchesAsText(m_Operator, cell, m_First.m_Text);
}

} // namespace literal
