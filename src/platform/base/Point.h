#pragma once

#include "platform/base/Types.h"

namespace utility
{

/// A point or offset in whole units; y grows downwards on the screen.
class CPoint
{
public:
    constexpr CPoint() = default;
    constexpr CPoint(LONG toX, LONG toY) : x(toX), y(toY) {}

    constexpr void Offset(LONG dx, LONG dy)
    {
        x += dx;
        y += dy;
    }
    constexpr bool operator==(const CPoint& other) const = default;
    constexpr CPoint operator+(CPoint other) const { return {x + other.x, y + other.y}; }
    constexpr CPoint operator-(CPoint other) const { return {x - other.x, y - other.y}; }
    constexpr CPoint operator-() const { return {-x, -y}; }
    constexpr CPoint& operator+=(CPoint other) { return *this = *this + other; }
    constexpr CPoint& operator-=(CPoint other) { return *this = *this - other; }

    LONG x = 0;
    LONG y = 0;
};

} // namespace utility
