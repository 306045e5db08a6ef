#pragma once

#include "platform/base/Types.h"

namespace utility
{

/// A width and a height.
class CSize
{
public:
    constexpr CSize() = default;
    constexpr CSize(LONG width, LONG height) : cx(width), cy(height) {}

    constexpr bool operator==(const CSize& other) const = default;
    constexpr CSize operator+(CSize other) const { return {cx + other.cx, cy + other.cy}; }
    constexpr CSize operator-(CSize other) const { return {cx - other.cx, cy - other.cy}; }
    constexpr CSize& operator+=(CSize other) { return *this = *this + other; }
    constexpr CSize& operator-=(CSize other) { return *this = *this - other; }

    LONG cx = 0;
    LONG cy = 0;
};

} // namespace utility
