#include "text/match/WildcardNumber.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/UnitSearch.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace utility
{

namespace
{

/// Shorter runs are walked each time, without a table.
constexpr std::uint32_t LONG_RUN = 64;

/// Numbers of no more digits are an exact integer over an exact power of ten, so their quotient is
/// the nearest double.
constexpr int EXACT_DIGITS = 15;

/// Digits behind these move a number by far less than ranges tell apart.
constexpr std::size_t DECISIVE_DIGITS = 64;

/// Mantissas that differ by no more are equal.
constexpr double MANTISSA_TOLERANCE = 2.220446049250313e-16;

constexpr double POWERS_OF_TEN[EXACT_DIGITS + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                    1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool IsSeparator(char16_t unit)
{
    return unit == u'.' || unit == u',';
}

} // namespace

/// A number with a separator or with many digits.
CWrittenNumber CNumberFinder::FindLong(std::uint32_t first)
{
    CWrittenNumber number;
    const std::uint32_t point = EndOfDigits(first);
    const bool hasPoint = IsSeparator(m_Text[point]);
    number.m_End = hasPoint ? EndOfDigits(point + 1) : point;

    const std::uint32_t fraction = hasPoint ? point + 1 : point;
    number.m_Leading = EndOfZeros(first);
    number.m_Exponent = static_cast<int>(point) - static_cast<int>(number.m_Leading) - 1;
    if (number.m_Leading >= point)
    {
        number.m_Leading = EndOfZeros(fraction);
        number.m_Exponent = static_cast<int>(fraction) - static_cast<int>(number.m_Leading) - 1;
    }
    return number;
}

double CNumberFinder::GetValue(const CWrittenNumber& number) const
{
    if (number.m_Whole >= 0)
        return number.m_Whole;
    if (number.m_Leading == number.m_End)
        return 0;
    const int digits = static_cast<int>(number.m_End - number.m_Leading);
    const int decimals = digits - number.m_Exponent - 1;
    return std::max(digits, decimals) <= EXACT_DIGITS ? ReadShort(number) : ReadLong(number);
}

double CNumberFinder::ReadShort(const CWrittenNumber& number) const
{
    double digits = 0;
    int power = number.m_Exponent + 1;
    for (std::uint32_t place = number.m_Leading; place < number.m_End; ++place)
    {
        if (!IsDigit(m_Text[place]))
            continue;
        digits = digits * 10 + (m_Text[place] - u'0');
        --power;
    }
    return digits / POWERS_OF_TEN[-power];
}

double CNumberFinder::ReadLong(const CWrittenNumber& number) const
{
    std::array<char, DECISIVE_DIGITS + 24> decimal; // and the exponent
    char* end = decimal.data();
    for (std::uint32_t digit = number.m_Leading;
         digit < number.m_End && end != decimal.data() + DECISIVE_DIGITS; ++digit)
    {
        if (IsDigit(m_Text[digit]))
            *end++ = static_cast<char>(m_Text[digit]);
    }
    // The point stands behind the digits.
    const std::ptrdiff_t exponent = number.m_Exponent - (end - decimal.data() - 1);
    *end++ = 'e';
    end = std::to_chars(end, decimal.data() + decimal.size(), exponent).ptr;

    double value = 0;
    const auto result = std::from_chars(decimal.data(), end, value);
    if (result.ec == std::errc::result_out_of_range)
        return number.m_Exponent > 0 ? std::numeric_limits<double>::max() : 0;
    return value;
}

std::uint32_t CNumberFinder::EndOfDigits(std::uint32_t first)
{
    if (!m_Ends.empty())
        return m_Ends[first].m_Digits;

    std::uint32_t end = first;
    while (IsDigit(m_Text[end]))
    {
        if (++end - first == LONG_RUN)
        {
            Prepare();
            return m_Ends[first].m_Digits;
        }
    }
    return end;
}

/// Called for runs of digits of which the end is known, so a long run is in the table.
std::uint32_t CNumberFinder::EndOfZeros(std::uint32_t first)
{
    if (!m_Ends.empty())
        return m_Ends[first].m_Zeros;

    std::uint32_t end = first;
    while (m_Text[end] == u'0')
        ++end;
    return end;
}

void CNumberFinder::Prepare()
{
    const auto length = static_cast<std::uint32_t>(units::Length(m_Text));
    m_Ends.resize(length + 1);
    m_Ends[length] = {length, length};
    for (std::uint32_t position = length; position-- > 0;)
    {
        const CEnds& next = m_Ends[position + 1];
        m_Ends[position].m_Digits = IsDigit(m_Text[position]) ? next.m_Digits : position;
        m_Ends[position].m_Zeros = m_Text[position] == u'0' ? next.m_Zeros : position;
    }
}

CScaledNumber::CScaledNumber(double value) : m_Mantissa(value)
{
    for (; m_Mantissa > 10; ++m_Exponent)
        m_Mantissa /= 10;
    for (; m_Mantissa != 0 && m_Mantissa < 1; --m_Exponent)
        m_Mantissa *= 10;
}

int CScaledNumber::Compare(const CScaledNumber& other) const
{
    if (m_Exponent != other.m_Exponent)
        return m_Exponent < other.m_Exponent ? -1 : 1;
    if (std::abs(m_Mantissa - other.m_Mantissa) <= MANTISSA_TOLERANCE)
        return 0;
    return m_Mantissa < other.m_Mantissa ? -1 : 1;
}

} // namespace utility
