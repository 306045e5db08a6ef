#include "platform/base/PrintNumber.h"

#include "platform/base/UnitSearch.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace utility
{

namespace
{

constexpr int DEFAULT_PRECISION = 6;
constexpr std::size_t LONGEST_WHOLE_PART = 320; // the largest double has 309 digits

std::string Sign(const CPrintForm& form, bool negative)
{
    if (negative)
        return "-";
    if (form.m_Plus)
        return "+";
    return form.m_Blank ? " " : "";
}

std::string ToUpperCase(std::string text)
{
    for (char& byte : text)
        if (byte >= 'a' && byte <= 'z')
            byte = static_cast<char>(byte - 'a' + 'A');
    return text;
}

std::string IntegerDigits(std::uint64_t value, int base)
{
    char digits[22]; // 64 bits in base 8
    const auto end = std::to_chars(digits, digits + sizeof(digits), value, base).ptr;
    return std::string(digits, end);
}

std::string RealDigits(double value, std::chars_format format, int precision)
{
    constexpr std::size_t USUAL_PRECISION = 40;
    char usual[LONGEST_WHOLE_PART + USUAL_PRECISION];
    const auto digits = static_cast<std::size_t>(precision);
    if (digits <= USUAL_PRECISION)
        return std::string(
            usual, std::to_chars(usual, usual + sizeof(usual), value, format, precision).ptr);

    std::string text(LONGEST_WHOLE_PART + digits, '\0');
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, format, precision).ptr;
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

// The alternate form always shows a point.
std::string WithPoint(std::string digits)
{
    if (digits.find('.') == std::string::npos)
        digits.insert(std::min(digits.find('e'), digits.size()), ".");
    return digits;
}

// The general form with its trailing zeros, which the standard writer always takes away.
std::string WholeGeneralDigits(double value, int precision)
{
    const std::string scientific = RealDigits(value, std::chars_format::scientific, precision - 1);
    int exponent = 0;
    const char* first = scientific.data() + scientific.find('e') + 1;
    first += *first == '+';
    std::from_chars(first, scientific.data() + scientific.size(), exponent);
    if (exponent < -4 || exponent >= precision)
        return scientific;
    return RealDigits(value, std::chars_format::fixed, precision - 1 - exponent);
}

std::string FiniteDigits(const CPrintForm& form, double value)
{
    const int precision = form.m_Precision < 0 ? DEFAULT_PRECISION : form.m_Precision;
    const bool isGeneral = form.m_Conversion == u'g' || form.m_Conversion == u'G';
    if (isGeneral && form.m_Alternate)
        return WithPoint(WholeGeneralDigits(value, std::max(precision, 1)));
    if (isGeneral)
        return RealDigits(value, std::chars_format::general, precision);

    const bool isFixed = form.m_Conversion == u'f' || form.m_Conversion == u'F';
    std::string digits = RealDigits(
        value, isFixed ? std::chars_format::fixed : std::chars_format::scientific, precision);
    return form.m_Alternate ? WithPoint(std::move(digits)) : digits;
}

std::uint64_t CutTo(int bits, std::uint64_t value)
{
    return bits == 64 ? value : value & ((std::uint64_t(1) << bits) - 1);
}

bool IsNegative(int bits, std::uint64_t value)
{
    return ((value >> (bits - 1)) & 1) != 0;
}

} // namespace

bool CPrintForm::IsInteger() const
{
    return units::IsOneOf(m_Conversion, u"diuxXo");
}

bool CPrintForm::IsReal() const
{
    return units::IsOneOf(m_Conversion, u"fFgGeE");
}

bool GetIntegerBits(const CFormatArgument& argument, std::uint64_t& bits)
{
    switch (argument.GetKind())
    {
    case CFormatArgument::EKind::Signed:
        bits = static_cast<std::uint64_t>(argument.GetSigned());
        return true;
    case CFormatArgument::EKind::Unsigned:
    case CFormatArgument::EKind::Unit:
        bits = argument.GetUnsigned();
        return true;
    default:
        return false;
    }
}

CPrintedNumber PrintInteger(const CPrintForm& form, std::uint64_t bits)
{
    CPrintedNumber number;
    std::uint64_t value = CutTo(form.m_Bits, bits);
    int base = 10;
    if (form.m_Conversion == u'd' || form.m_Conversion == u'i')
    {
        const bool negative = IsNegative(form.m_Bits, value);
        if (negative)
            value = CutTo(form.m_Bits, 0 - value);
        number.m_Prefix = Sign(form, negative);
    }
    else if (form.m_Conversion != u'u')
        base = form.m_Conversion == u'o' ? 8 : 16;

    if (value != 0 || form.m_Precision != 0)
        number.m_Digits = IntegerDigits(value, base);
    if (form.m_Conversion == u'X')
        number.m_Digits = ToUpperCase(std::move(number.m_Digits));
    if (const auto wanted = static_cast<std::size_t>(std::max(form.m_Precision, 0));
        number.m_Digits.size() < wanted)
        number.m_Digits.insert(0, wanted - number.m_Digits.size(), '0');
    if (form.m_Alternate && base == 16 && value != 0)
        number.m_Prefix = form.m_Conversion == u'x' ? "0x" : "0X";
    if (form.m_Alternate && base == 8 && !number.m_Digits.starts_with('0'))
        number.m_Digits.insert(0, "0");
    number.m_MayPadZeros = form.m_Precision < 0;
    return number;
}

CPrintedNumber PrintReal(const CPrintForm& form, double value)
{
    CPrintedNumber number;
    number.m_Prefix = Sign(form, std::signbit(value));
    number.m_MayPadZeros = std::isfinite(value);
    if (std::isfinite(value))
        number.m_Digits = FiniteDigits(form, std::fabs(value));
    else
        number.m_Digits = std::isnan(value) ? "nan" : "inf";
    if (form.m_Conversion < u'a') // the upper-case forms
        number.m_Digits = ToUpperCase(std::move(number.m_Digits));
    return number;
}

CPrintedNumber PrintPointer(const void* pointer)
{
    CPrintedNumber number;
    number.m_Digits = ToUpperCase(IntegerDigits(reinterpret_cast<std::uintptr_t>(pointer), 16));
    number.m_Digits.insert(0, 16 - number.m_Digits.size(), '0');
    return number;
}

} // namespace utility
