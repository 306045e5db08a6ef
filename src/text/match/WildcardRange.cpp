#include "text/match/WildcardRange.h"

#include "platform/base/CharacterClass.h"
#include "text/match/WildcardChars.h"

#include <algorithm>
#include <limits>

namespace utility
{

namespace
{

/// Shorter runs are walked each time, without a table.
constexpr std::uint32_t LONG_RUN = 64;

/// Digits behind these move a number by far less than ranges tell apart.
constexpr std::size_t DECISIVE_DIGITS = 64;

/// Whole numbers of no more digits are in the order of their values: scaling moves their mantissas
/// by far less than they differ.
constexpr std::uint32_t WHOLE_DIGITS = 9;

/// Mantissas that differ by no more are equal.
constexpr double MANTISSA_TOLERANCE = 2.220446049250313e-16;

constexpr char16_t RANGE_SEPARATOR = u':';
constexpr char16_t RANGE_CLOSE = u']';

char16_t UnitAt(std::u16string_view text, std::uint32_t position)
{
    return position < text.size() ? text[position] : u'\0';
}

std::int32_t ReadWhole(std::u16string_view digits)
{
    std::int32_t value = 0;
    for (const char16_t digit : digits)
        value = value * 10 + (digit - u'0');
    return value;
}

CNumberPlaces FindNumber(CDigitRuns& runs, std::uint32_t first)
{
    const std::uint32_t point = runs.EndOfDigits(first);
    const char16_t separator = UnitAt(runs.GetText(), point);
    const std::uint32_t fraction = point + (separator == u'.' || separator == u',' ? 1 : 0);

    CNumberPlaces places;
    places.m_End = fraction > point ? runs.EndOfDigits(fraction) : point;
    places.m_Leading = runs.EndOfZeros(first);
    places.m_Exponent = static_cast<int>(point) - static_cast<int>(places.m_Leading) - 1;
    if (places.m_Leading >= point)
    {
        places.m_Leading = runs.EndOfZeros(fraction);
        places.m_Exponent = static_cast<int>(fraction) - static_cast<int>(places.m_Leading) - 1;
    }
    if (places.m_End == point && point - places.m_Leading <= WHOLE_DIGITS)
        places.m_Whole =
            ReadWhole(runs.GetText().substr(places.m_Leading, point - places.m_Leading));
    return places;
}

/// The nearest double; the largest where the number is too large for one.
double NumberValue(std::u16string_view text, const CNumberPlaces& places)
{
    if (places.m_Leading == places.m_End)
        return 0;
    if (places.m_Whole >= 0)
        return places.m_Whole;

    std::array<char, DECISIVE_DIGITS + 24> decimal; // and the exponent
    char* end = decimal.data();
    for (std::uint32_t digit = places.m_Leading;
         digit < places.m_End && end != decimal.data() + DECISIVE_DIGITS; ++digit)
    {
        if (IsDigit(text[digit]))
            *end++ = static_cast<char>(text[digit]);
    }
    // The point stands behind the digits.
    const std::ptrdiff_t exponent = places.m_Exponent - (end - decimal.data() - 1);
    *end++ = 'e';
    end = std::to_chars(end, decimal.data() + decimal.size(), exponent).ptr;

    double value = 0;
    const auto result = std::from_chars(decimal.data(), end, value);
    if (result.ec == std::errc::result_out_of_range)
        return places.m_Exponent > 0 ? std::numeric_limits<double>::max() : 0;
    return value;
}

/// Whether the exponents alone decide the comparison: scaling moves one by no more than 1.
bool IsFar(const CNumberPlaces& places, const CRangeNumber& bound)
{
    constexpr int LARGEST_EXPONENT = 308;
    constexpr int SURELY_NOT_ZERO = -300;
    return places.m_Leading != places.m_End && places.m_Exponent > SURELY_NOT_ZERO &&
           std::abs(std::min(places.m_Exponent, LARGEST_EXPONENT) - bound.m_Exponent) > 2;
}

/// Sign of the order of a number of the text and a bound.
int CompareWithBound(std::u16string_view text, const CNumberPlaces& places,
                     const CRangeNumber& bound)
{
    if (IsFar(places, bound))
        return places.m_Exponent < bound.m_Exponent ? -1 : 1;
    return CRangeNumber(NumberValue(text, places)).Compare(bound);
}

} // namespace

template <typename TFits>
inline std::uint32_t CDigitRuns::End(std::uint32_t first, std::uint32_t CEnds::*end, TFits fits)
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
    if (places.m_End == text || !ReadBounds(pattern) || !IsBetweenBounds(places))
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
    m_AreScaled = false;
    m_LowPlaces = FindNumber(m_Pattern, pattern);
    const std::uint32_t separator = m_LowPlaces.m_End;
    if (separator == pattern || UnitAt(m_Pattern.GetText(), separator) != RANGE_SEPARATOR)
        return false;
    m_HighPlaces = FindNumber(m_Pattern, separator + 1);
    if (m_HighPlaces.m_End == separator + 1 || !IsClosed(m_HighPlaces.m_End))
        return false;

    m_BehindBounds = m_HighPlaces.m_End + 2;
    return true;
}

bool CWildcardRange::IsBetweenBounds(const CNumberPlaces& number)
{
    const std::int32_t low = m_LowPlaces.m_Whole;
    const std::int32_t high = m_HighPlaces.m_Whole;
    if (number.m_Whole >= 0 && low >= 0 && high >= 0)
        return std::min(low, high) <= number.m_Whole && number.m_Whole <= std::max(low, high);

    if (!m_AreScaled)
    {
        m_Low = CRangeNumber(NumberValue(m_Pattern.GetText(), m_LowPlaces));
        m_High = CRangeNumber(NumberValue(m_Pattern.GetText(), m_HighPlaces));
        m_AreScaled = true;
    }
    const int toLow = CompareWithBound(m_Text.GetText(), number, m_Low);
    const int toHigh = CompareWithBound(m_Text.GetText(), number, m_High);
    return toLow == 0 || toHigh == 0 || toLow != toHigh;
}

bool CWildcardRange::IsClosed(std::uint32_t pattern) const
{
    return UnitAt(m_Pattern.GetText(), pattern) == GetWildFormatChar() &&
           UnitAt(m_Pattern.GetText(), pattern + 1) == RANGE_CLOSE;
}

} // namespace utility
