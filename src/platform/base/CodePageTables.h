#pragma once

#include "platform/base/Types.h"

#include <array>

namespace utility
{

using CUpperHalf = std::array<char16_t, 128>; // units of the bytes 0x80 to 0xFF

struct CUnitByte
{
    char16_t m_Unit;
    unsigned char m_Byte;
};

/// A page of one byte a character whose lower half is ASCII.
struct CCodePage
{
    UINT m_Number;
    CUpperHalf m_Upper;
    std::array<CUnitByte, 128> m_ByUnit; // ascending by unit

    char16_t GetUnit(unsigned char byte) const
    {
        return byte < 0x80 ? byte : m_Upper[byte - 0x80U];
    }

    /// The byte of a unit, or -1 if the page lacks it; near look-alikes are not taken.
    int FindByte(char16_t unit) const;
};

/// One of the pages that the library knows by itself, or null.
///
///     437 850                terminals; 437 is the page of old ZIP names
///     1250 to 1258           the classic desktop pages
///     20127 28591 28605      ASCII, Latin-1, Latin-9
const CCodePage* FindCodePage(UINT number);

} // namespace utility
