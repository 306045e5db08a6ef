#include "text/match/WildcardRange.h"

#include "platform/base/CharacterClass.h"
#include "text/match/WildcardUnit.h"

#include <algorithm>
#include <cstdlib>

namespace utility
{

namespace
{

constexpr char16_t RANGE_SEPARATOR = u':';

bool IsClosed(const char16_t* place)
{
    return place[0] == u'%' && place[1] == u']';
}

/// Whether the exponents alone decide the comparison: scaling moves one by no more than 1.
bool IsFar(const CWrittenNumber& number, const CScaledNumber& bound)
{
    constexpr int LARGEST_EXPONENT = 308;
    constexpr int SURELY_NOT_ZERO = -300;
    return number.m_Whole < 0 && number.m_Leading != number.m_End &&
           number.m_Exponent > SURELY_NOT_ZERO &&
           std::abs(std::min(number.m_Exponent, LARGEST_EXPONENT) - bound.m_Exponent) > 2;
}

} // namespace

CWildcardRange::CWildcardRange(const char16_t* pattern, CNumberFinder& numbers, std::uint32_t first)
{
    if (IsAlpha(pattern[first]))
        ReadLetters(pattern, first);
    else
        ReadNumbers(pattern, numbers, first);
}

void CWildcardRange::ReadLetters(const char16_t* pattern, std::uint32_t first)
{
    const char16_t* const letter = pattern + first;
    if (letter[1] != RANGE_SEPARATOR || !IsAlpha(letter[2]) || !IsClosed(letter + 3))
        return;
    m_FirstClasses = UNIT_LETTER;
    m_FirstLetter = letter[0];
    m_LastLetter = letter[2];
    m_End = first + 5;
}

void CWildcardRange::ReadNumbers(const char16_t* pattern, CNumberFinder& numbers,
                                 std::uint32_t first)
{
    const CWrittenNumber low = numbers.Find(first);
    if (low.m_End == first || pattern[low.m_End] != RANGE_SEPARATOR)
        return;
    const std::uint32_t second = low.m_End + 1;
    const CWrittenNumber high = numbers.Find(second);
    if (high.m_End == second || !IsClosed(pattern + high.m_End))
        return;
    m_FirstClasses = UNIT_DIGIT | UNIT_POINT;
    m_Low = CScaledNumber(numbers.GetValue(low));
    m_High = CScaledNumber(numbers.GetValue(high));
    m_HasWholeBounds = low.m_Whole >= 0 && high.m_Whole >= 0;
    const auto [least, most] = std::minmax(low.m_Whole, high.m_Whole);
    m_LeastWhole = static_cast<std::uint32_t>(least);
    m_WholeSpan = static_cast<std::uint32_t>(most) - m_LeastWhole;
    m_End = high.m_End + 2;
}

bool CWildcardRange::FitsLetter(char16_t unit) const
{
    if (unit == m_FirstLetter || unit == m_LastLetter)
        return true;
    const auto [low, high] = std::minmax(m_FirstLetter, m_LastLetter);
    return low < unit && unit < high && IsUpper(unit) == IsUpper(m_FirstLetter);
}

bool CWildcardRange::FitsNumber(const CNumberFinder& numbers, const CWrittenNumber& number) const
{
    if (number.m_Whole >= 0 && m_HasWholeBounds) // what is below the least wraps round
        return static_cast<std::uint32_t>(number.m_Whole) - m_LeastWhole <= m_WholeSpan;

    const int toLow = Compare(numbers, number, m_Low);
    const int toHigh = Compare(numbers, number, m_High);
    return toLow == 0 || toHigh == 0 || toLow != toHigh;
}

/// Sign of the order of a number of the text and a bound.
int CWildcardRange::Compare(const CNumberFinder& numbers, const CWrittenNumber& number,
                            const CScaledNumber& bound)
{
    if (IsFar(number, bound))
        return number.m_Exponent < bound.m_Exponent ? -1 : 1;
    return CScaledNumber(numbers.GetValue(number)).Compare(bound);
}

} // namespace utility
