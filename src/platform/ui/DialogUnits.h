#pragma once

#include "platform/base/Rect.h"

namespace utility
{

/// Turns dialog units into pixels, so that a template fits whatever font shows it: four units are
/// the width of the font's average letter, eight its height.
struct CDialogUnits
{
    int m_LetterWidth = 6; // pixels
    int m_LetterHeight = 13;

    constexpr int ToPixelsX(int units) const { return Scale(units, m_LetterWidth, 4); }
    constexpr int ToPixelsY(int units) const { return Scale(units, m_LetterHeight, 8); }

    constexpr CSize ToPixels(CSize units) const
    {
        return {ToPixelsX(units.cx), ToPixelsY(units.cy)};
    }
    /// By its sides, so that controls that touch in units touch in pixels.
    constexpr CRect ToPixels(const CRect& units) const
    {
        return {ToPixelsX(units.left), ToPixelsY(units.top), ToPixelsX(units.right),
                ToPixelsY(units.bottom)};
    }

private:
    /// To the nearest, halves away from zero.
    static constexpr int Scale(int units, int pixels, int step)
    {
        const int twice = units * pixels * 2;
        return (twice + (twice < 0 ? -step : step)) / (step * 2);
    }
};

} // namespace utility
