#pragma once

namespace utility
{

/// Character classes of the library: ASCII alone, nothing above it belongs to any class.
constexpr bool IsDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}
constexpr bool IsUpper(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z';
}
constexpr bool IsLower(char16_t unit)
{
    return unit >= u'a' && unit <= u'z';
}
constexpr bool IsAlpha(char16_t unit)
{
    return IsUpper(unit) || IsLower(unit);
}
constexpr bool IsAlnum(char16_t unit)
{
    return IsAlpha(unit) || IsDigit(unit);
}

/// Blank, tab, line feed, vertical tab, form feed, carriage return.
constexpr bool IsSpace(char16_t unit)
{
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

/// Value of a hexadecimal digit in either case, or -1.
constexpr int HexDigitValue(char16_t unit)
{
    if (IsDigit(unit))
        return unit - u'0';
    if (unit >= u'A' && unit <= u'F')
        return unit - u'A' + 10;
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10;
    return -1;
}

} // namespace utility
