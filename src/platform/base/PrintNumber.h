#pragma once

#include "platform/base/FormatArgument.h"

#include <cstdint>
#include <string>

/// Numbers as the printf dialect words them: the inner half of PrintFormat.h.
namespace utility
{

/// What stands between the percent sign and the end of one form.
struct CPrintForm
{
    bool m_Left = false;
    bool m_Zeros = false;
    bool m_Plus = false;
    bool m_Blank = false;
    bool m_Alternate = false;
    int m_Width = 0;
    int m_Precision = -1; // -1: not given
    int m_Bits = 32;
    char16_t m_Conversion = 0;

    bool IsInteger() const;
    bool IsReal() const;
};

/// A number before it is brought to its width: sign and mark of the base, then the digits.
struct CPrintedNumber
{
    std::string m_Prefix;
    std::string m_Digits;
    bool m_MayPadZeros = true; // the zeros stand between prefix and digits
};

/// The 64 bits of an integer insert, with its sign extended; false if it is none.
bool GetIntegerBits(const CFormatArgument& argument, std::uint64_t& bits);

CPrintedNumber PrintInteger(const CPrintForm& form, std::uint64_t bits);
CPrintedNumber PrintReal(const CPrintForm& form, double value);

/// Sixteen upper-case hexadecimal digits.
CPrintedNumber PrintPointer(const void* pointer);

} // namespace utility
