#include "text/match/WildcardRange.h"

#include "platform/base/CharacterClass.h"
#include "text/match/WildcardChars.h"

#include <limits>

namespace utility
{

namespace
{

/// Shorter runs are walked each time, without a table.
constexpr std::uint32_t LONG_RUN = 64;

/// Digits behind these move a number by far less than ranges tell apart.
constexpr std::size_t DECISIVE_DIGITS = 64;

/// Mantissas that differ by no more are equal.
constexpr double MANTISSA_TOLERANCE = 2.220446049250313e-16;

constexpr char16_t RANGE_SEPARATOR = u':';
constexpr char16_t RANGE_CLOSE = u']';

char16_t UnitAt(std::u16string_view text, std::uint32_t position)
{
    return position < text.size() ? text[position] : u'\0';
}

/// Places of a number: digits, a separator, digits.
struct CNumberPlaces
{
    std::uint32_t m_First;    // of the integer part
    std::uint32_t m_Point;    // end of the integer part
    std::uint32_t m_Fraction; // behind the separator, if there is one
    std::uint32_t m_End;
};

CNumberPlaces FindNumber(CDigitRuns& runs, std::uint32_t first)
{
    CNumberPlaces places{};
    places.m_First = first;
    places.m_Point = runs.EndOfDigits(first);
    places.m_Fraction = places.m_Point;
    const char16_t unit = UnitAt(runs.GetText(), places.m_Point);
    if (unit == u'.' || unit == u',')
        ++places.m_Fraction;
    places.m_End =
        places.m_Fraction > places.m_Point ? runs.EndOfDigits(places.m_Fraction) : places.m_Point;
    return places;
}

/// The nearest double; the largest where the number is too large for one.
double NumberValue(CDigitRuns& runs, const CNumberPlaces& places)
{
    std::uint32_t digit = std::min(runs.EndOfZeros(places.m_First), places.m_Point);
    std::int64_t exponent = std::int64_t{places.m_Point} - digit - 1;
    if (digit == places.m_Point)
    {
        digit = std::min(runs.EndOfZeros(places.m_Fraction), places.m_End);
        exponent = std::int64_t{places.m_Fraction} - digit - 1;
    }
    if (digit == places.m_End)
        return 0;
    const bool isLarge = exponent > 0;

    std::array<char, DECISIVE_DIGITS + 24> decimal; // and the exponent
    char* end = decimal.data();
    for (; digit < places.m_End && end != decimal.data() + DECISIVE_DIGITS; ++digit)
    {
        if (IsDigit(runs.GetText()[digit]))
            *end++ = static_cast<char>(runs.GetText()[digit]);
    }
    exponent -= end - decimal.data() - 1; // the point stands behind the digits
    *end++ = 'e';
    end = std::to_chars(end, decimal.data() + decimal.size(), exponent).ptr;

    double value = 0;
    const auto result = std::from_chars(decimal.data(), end, value);
    if (result.ec == std::errc::result_out_of_range)
        return isLarge ? std::numeric_limits<double>::max() : 0;
    return value;
}

} // namespace

template <typename TFits>
std::uint32_t CDigitRuns::End(std::uint32_t first, std::uint32_t CEnds::*end, TFits fits)
{
    if (first >= m_Text.size())
        return first;

    std::uint32_t position = first;
    while (m_Ends.empty())
    {
        if (position == m_Text.size() || !fits(m_Text[position]))
            return position;
        if (++position - first == LONG_RUN)
            Prepare();
    }
    return m_Ends[first].*end;
}

std::uint32_t CDigitRuns::EndOfDigits(std::uint32_t first)
{
    return End(first, &CEnds::m_Digits, IsDigit);
}

std::uint32_t CDigitRuns::EndOfZeros(std::uint32_t first)
{
    return End(first, &CEnds::m_Zeros, [](char16_t unit) { return unit == u'0'; });
}

void CDigitRuns::Prepare()
{
    const auto length = static_cast<std::uint32_t>(m_Text.size());
    m_Ends.resize(length + 1);
    m_Ends[length] = {length, length};
    for (std::uint32_t position = length; position-- > 0;)
    {
        const CEnds& next = m_Ends[position + 1];
        m_Ends[position].m_Digits = IsDigit(m_Text[position]) ? next.m_Digits : position;
        m_Ends[position].m_Zeros = m_Text[position] == u'0' ? next.m_Zeros : position;
    }
}

CRangeNumber::CRangeNumber(double value) : m_Mantissa(value)
{
    for (; m_Mantissa > 10; ++m_Exponent)
        m_Mantissa /= 10;
    for (; m_Mantissa != 0 && m_Mantissa < 1; --m_Exponent)
        m_Mantissa *= 10;
}

int CRangeNumber::Compare(const CRangeNumber& other) const
{
    if (m_Exponent != other.m_Exponent)
        return m_Exponent < other.m_Exponent ? -1 : 1;
    if (std::abs(m_Mantissa - other.m_Mantissa) <= MANTISSA_TOLERANCE)
        return 0;
    return m_Mantissa < other.m_Mantissa ? -1 : 1;
}

bool CWildcardRange::Take(std::uint32_t& pattern, std::uint32_t& text)
{
    return IsAlpha(UnitAt(m_Text.GetText(), text)) ? TakeLetter(pattern, text)
                                                   : TakeNumber(pattern, text);
}

bool CWildcardRange::TakeLetter(std::uint32_t& pattern, std::uint32_t& text) const
{
    const std::u16string_view bounds = m_Pattern.GetText();
    const char16_t first = UnitAt(bounds, pattern);
    const char16_t last = UnitAt(bounds, pattern + 2);
    if (!IsAlpha(first) || UnitAt(bounds, pattern + 1) != RANGE_SEPARATOR || !IsAlpha(last) ||
        !IsClosed(pattern + 3))
        return false;

    const char16_t unit = m_Text.GetText()[text];
    const bool isBetween = (first < unit && unit < last) || (last < unit && unit < first);
    if (unit != first && unit != last && !(isBetween && IsUpper(unit) == IsUpper(first)))
        return false;
    pattern += 5;
    ++text;
    return true;
}

bool CWildcardRange::TakeNumber(std::uint32_t& pattern, std::uint32_t& text)
{
    const CNumberPlaces places = FindNumber(m_Text, text);
    if (places.m_End == text || !ReadBounds(pattern))
        return false;

    const CRangeNumber number(NumberValue(m_Text, places));
    const int low = number.Compare(m_Low);
    const int high = number.Compare(m_High);
    if (low != 0 && high != 0 && low == high)
        return false;
    pattern = m_BehindBounds;
    text = places.m_End;
    return true;
}

bool CWildcardRange::ReadBounds(std::uint32_t pattern)
{
    if (m_BoundsAt == pattern)
        return m_BehindBounds != 0;

    m_BoundsAt = pattern;
    m_BehindBounds = 0;
    const CNumberPlaces low = FindNumber(m_Pattern, pattern);
    if (low.m_End == pattern || UnitAt(m_Pattern.GetText(), low.m_End) != RANGE_SEPARATOR)
        return false;
    const CNumberPlaces high = FindNumber(m_Pattern, low.m_End + 1);
    if (high.m_End == low.m_End + 1 || !IsClosed(high.m_End))
        return false;

    m_Low = CRangeNumber(NumberValue(m_Pattern, low));
    m_High = CRangeNumber(NumberValue(m_Pattern, high));
    m_BehindBounds = high.m_End + 2;
    return true;
}

bool CWildcardRange::IsClosed(std::uint32_t pattern) const
{
    return UnitAt(m_Pattern.GetText(), pattern) == GetWildFormatChar() &&
           UnitAt(m_Pattern.GetText(), pattern + 1) == RANGE_CLOSE;
}

} // namespace utility
