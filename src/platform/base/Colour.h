#pragma once

#include "platform/base/Types.h"

namespace utility
{

/// A colour: red in the low byte, then green, then blue; the high byte is 0.
using COLORREF = std::uint32_t;

constexpr COLORREF RGB(int red, int green, int blue)
{
    return static_cast<BYTE>(red) | static_cast<COLORREF>(static_cast<BYTE>(green)) << 8 |
           static_cast<COLORREF>(static_cast<BYTE>(blue)) << 16;
}

constexpr BYTE GetRValue(COLORREF colour)
{
    return static_cast<BYTE>(colour);
}

constexpr BYTE GetGValue(COLORREF colour)
{
    return static_cast<BYTE>(colour >> 8);
}

constexpr BYTE GetBValue(COLORREF colour)
{
    return static_cast<BYTE>(colour >> 16);
}

} // namespace utility
