#include "platform/base/NumberText.h"

#include "platform/base/CharacterClass.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>
#include <string_view>

namespace utility
{

namespace
{

const char16_t* SkipSpace(const char16_t* place)
{
    while (IsSpace(*place))
        ++place;
    return place;
}

// Takes one sign, if there is one.
bool TakeSign(const char16_t*& place)
{
    const bool negative = *place == u'-';
    if (negative || *place == u'+')
        ++place;
    return negative;
}

// The value as a digit of the base, or -1.
int DigitValue(char16_t unit, int base)
{
    int value = -1;
    if (IsDigit(unit))
        value = unit - u'0';
    else if (IsUpper(unit))
        value = unit - u'A' + 10;
    else if (IsLower(unit))
        value = unit - u'a' + 10;
    return value < base ? value : -1;
}

bool HasHexPrefix(const char16_t* place)
{
    return place[0] == u'0' && (place[1] == u'x' || place[1] == u'X') &&
           HexDigitValue(place[2]) >= 0;
}

// Settles the base by the prefix, which is skipped where it is no digit itself.
int TakePrefix(const char16_t*& place, int base)
{
    if ((base == 0 || base == 16) && HasHexPrefix(place))
    {
        place += 2;
        return 16;
    }
    if (base == 0)
        return *place == u'0' ? 8 : 10;
    return base;
}

struct CIntegerText
{
    bool m_Negative = false;
    bool m_Overflow = false;       // the magnitude does not fit 64 bits
    std::uint64_t m_Magnitude = 0; // wrapped if it does not fit
    const char16_t* m_End = nullptr;
};

CIntegerText ReadInteger(const char16_t* text, int base)
{
    CIntegerText result;
    const char16_t* place = SkipSpace(text);
    result.m_Negative = TakeSign(place);
    base = TakePrefix(place, base);
    const char16_t* const first = place;
    const std::uint64_t limit = std::numeric_limits<std::uint64_t>::max();
    for (int digit; (digit = DigitValue(*place, base)) >= 0; ++place)
    {
        const auto value = static_cast<std::uint64_t>(digit);
        if (result.m_Magnitude > (limit - value) / static_cast<std::uint64_t>(base))
            result.m_Overflow = true;
        result.m_Magnitude = result.m_Magnitude * static_cast<std::uint64_t>(base) + value;
    }
    result.m_End = place == first ? text : place;
    return result;
}

template <typename TInteger>
TInteger ReadSaturated(const char16_t* text, const char16_t** end, int base)
{
    if (end)
        *end = text;
    if (!text || base < 0 || base == 1 || base > 36)
        return 0;

    const CIntegerText number = ReadInteger(text, base);
    if (end)
        *end = number.m_End;
    const auto largest = static_cast<std::uint64_t>(std::numeric_limits<TInteger>::max());
    if (number.m_Negative)
        return number.m_Overflow || number.m_Magnitude > largest
                   ? std::numeric_limits<TInteger>::min()
                   : static_cast<TInteger>(0 - static_cast<TInteger>(number.m_Magnitude));
    return static_cast<TInteger>(number.m_Overflow ? largest
                                                   : std::min(number.m_Magnitude, largest));
}

const char16_t* SkipDigits(const char16_t* place)
{
    while (IsDigit(*place))
        ++place;
    return place;
}

// The end of the real number that starts here behind its sign; the start itself if there is none.
const char16_t* RealEnd(const char16_t* first)
{
    const char16_t* end = SkipDigits(first);
    bool hasDigits = end != first;
    if (*end == u'.')
    {
        const char16_t* const fraction = end + 1;
        end = SkipDigits(fraction);
        hasDigits = hasDigits || end != fraction;
    }
    if (!hasDigits)
        return first;
    if (*end == u'e' || *end == u'E' || *end == u'd' || *end == u'D')
    {
        const char16_t* digits = end + 1;
        TakeSign(digits);
        if (IsDigit(*digits))
            return SkipDigits(digits);
    }
    return end;
}

// Whether a number that does not fit is too large, not too small.
bool IsLarge(std::string_view number)
{
    const std::size_t mark = std::min(number.find('e'), number.size());
    const std::string_view mantissa = number.substr(0, mark);
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));

    std::int64_t exponent = 0;
    if (mark < number.size())
    {
        std::string_view digits = number.substr(mark + 1);
        if (digits.front() == '+')
            digits.remove_prefix(1);
        const auto read =
            std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec;
        if (read == std::errc::result_out_of_range)
            return digits.front() != '-';
    }
    return point - first + exponent > 0;
}

double ReadReal(std::string_view number)
{
    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value).ec;
    if (read == std::errc::result_out_of_range)
        return IsLarge(number) ? std::numeric_limits<double>::infinity() : 0;
    return value;
}

} // namespace

int _wtoi(const char16_t* text)
{
    return ReadSaturated<std::int32_t>(text, nullptr, 10);
}

std::int32_t _wtol(const char16_t* text)
{
    return ReadSaturated<std::int32_t>(text, nullptr, 10);
}

std::int64_t _wtoi64(const char16_t* text)
{
    return ReadSaturated<std::int64_t>(text, nullptr, 10);
}

double _wtof(const char16_t* text)
{
    return wcstod(text, nullptr);
}

std::int32_t wcstol(const char16_t* text, const char16_t** end, int base)
{
    return ReadSaturated<std::int32_t>(text, end, base);
}

std::int64_t _wcstoi64(const char16_t* text, const char16_t** end, int base)
{
    return ReadSaturated<std::int64_t>(text, end, base);
}

double wcstod(const char16_t* text, const char16_t** end)
{
    if (end)
        *end = text;
    if (!text)
        return 0;

    const char16_t* first = SkipSpace(text);
    const bool negative = TakeSign(first);
    const char16_t* const last = RealEnd(first);
    if (last == first)
        return 0;
    if (end)
        *end = last;

    std::string number;
    number.reserve(static_cast<std::size_t>(last - first));
    for (; first != last; ++first)
        number += IsAlpha(*first) ? 'e' : static_cast<char>(*first);
    const double value = ReadReal(number);
    return negative ? -value : value;
}

std::uint32_t ReadUnsignedWrapped(const char16_t* text)
{
    if (!text)
        return 0;
    const CIntegerText number = ReadInteger(text, 10);
    const auto low = static_cast<std::uint32_t>(number.m_Magnitude);
    return number.m_Negative ? 0U - low : low;
}

} // namespace utility
