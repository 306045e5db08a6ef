#include "text/Colours.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace utility
{

namespace
{

constexpr int LIGHT_GREY = 127; // a grey above is light
constexpr int BLUE_RAISE = 95;  // what pure blue, which the eye sees as dark, gets of red and green
constexpr int PURE_LIMIT = 10;  // red and green below this leave a blue pure
constexpr int OVERFLOW_TO = 249; // on purpose below 255: what runs over stays apart from white

struct CChannels
{
    int m_Red;
    int m_Green;
    int m_Blue;
};

CChannels Split(COLORREF colour)
{
    return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

COLORREF Join(const CChannels& channels)
{
    return RGB(channels.m_Red, channels.m_Green, channels.m_Blue);
}

/// Cut to an integer of which a channel keeps the low 8 bits; 0 for what no integer can hold.
int Truncate(double value)
{
    return std::fabs(value) < 1e9 ? static_cast<int>(value) : 0;
}

int TruncateBelow256(double value)
{
    const int whole = Truncate(value);
    return whole > 255 ? OVERFLOW_TO : whole;
}

int GreyOf(COLORREF colour)
{
    const CChannels c = Split(colour);
    return Truncate(0.59 * c.m_Green + 0.3 * c.m_Red + 0.11 * c.m_Blue);
}

bool IsLight(COLORREF colour)
{
    return GreyOf(colour) > LIGHT_GREY;
}

/// Raises the brightness by a factor and keeps the two colour differences.
CChannels Brighten(const CChannels& c, double factor)
{
    const double luma =
        std::max(0.99, factor * (0.299 * c.m_Red + 0.587 * c.m_Green + 0.114 * c.m_Blue));
    const double blueDifference = 0.5 * c.m_Blue - 0.33126 * c.m_Green - 0.16874 * c.m_Red;
    const double redDifference = 0.5 * c.m_Red - 0.41869 * c.m_Green - 0.08131 * c.m_Blue;
    return {TruncateBelow256(luma + 1.402 * redDifference),
            TruncateBelow256(luma - 0.34414 * blueDifference - 0.71414 * redDifference),
            TruncateBelow256(luma + 1.772 * blueDifference)};
}

bool IsWithin(int value, int other, int distance)
{
    return std::abs(value - other) <= distance;
}

bool IsGrey(const CChannels& c)
{
    return IsWithin(c.m_Green, c.m_Red, 5) && IsWithin(c.m_Blue, c.m_Red, 5);
}

bool DifferInAll(const CChannels& a, const CChannels& b)
{
    return a.m_Red != b.m_Red && a.m_Green != b.m_Green && a.m_Blue != b.m_Blue;
}

CChannels Mix(const CChannels& colour, const CChannels& background, double weight)
{
    const auto mix = [weight](int a, int b)
    {
        return Truncate(a * weight + b * (1 - weight));
    };
    return {mix(colour.m_Red, background.m_Red), mix(colour.m_Green, background.m_Green),
            mix(colour.m_Blue, background.m_Blue)};
}

/// Lighter on a light background. `raise` is added to a pure blue, `factor` brightens all else.
CChannels Lighten(const CChannels& c, double raise, double factor)
{
    if (c.m_Blue > 150 && c.m_Red < PURE_LIMIT && c.m_Green < PURE_LIMIT)
        return {TruncateBelow256(c.m_Red + raise), TruncateBelow256(c.m_Green + raise), c.m_Blue};
    return Brighten(c, factor);
}

/// A grey that would vanish on a near-white grey is darkened.
CChannels KeepApart(const CChannels& c, const CChannels& background)
{
    constexpr int NEAR_WHITE = 241;
    constexpr int DARKER = 25;
    const bool wouldVanish = background.m_Red >= NEAR_WHITE && IsGrey(background) &&
                             IsWithin(c.m_Red, background.m_Red, 14) && IsGrey(c);
    return wouldVanish ? CChannels{c.m_Red - DARKER, c.m_Green - DARKER, c.m_Blue - DARKER} : c;
}

} // namespace

COLORREF ColourToGreyScale(COLORREF colour)
{
    const int grey = GreyOf(colour);
    return RGB(grey, grey, grey);
}

COLORREF ColourContrast(COLORREF background)
{
    return IsLight(background) ? 0x282828 : 0xE1E1E1;
}

COLORREF ColourEnhance(COLORREF colour, COLORREF background, double factor)
{
    const double used = IsLight(background) ? factor : 2.0 - factor;
    const CChannels c = Split(colour);
    return RGB(Truncate(c.m_Red * used), Truncate(c.m_Green * used), Truncate(c.m_Blue * used));
}

COLORREF ColourUniformLowlight(COLORREF first, COLORREF second)
{
    constexpr COLORREF DIMMED_BLACK = 0x2D2D2D;
    const COLORREF base = second != 0 ? second : first;
    const CChannels c = Split(base);
    if (IsLight(first))
        return RGB(c.m_Red * 80 / 100, c.m_Green * 80 / 100, c.m_Blue * 80 / 100);
    if (base == 0)
        return DIMMED_BLACK;
    if (c.m_Blue >= 246 && c.m_Red < PURE_LIMIT && c.m_Green < PURE_LIMIT)
        return RGB(c.m_Red + BLUE_RAISE, c.m_Green + BLUE_RAISE, c.m_Blue);
    return Join(Brighten(c, 1.1));
}

COLORREF ColourLowlight(COLORREF colour, COLORREF background, double weight)
{
    const bool isWeighed = weight >= 0 && weight <= 1;
    if (weight == 0)
        return background;
    if (weight == 1)
        return colour;

    const CChannels c = Split(colour);
    const CChannels b = Split(background);
    if (!IsLight(background) || !DifferInAll(c, b))
        return Join(Mix(c, b, isWeighed ? weight : 0.5));

    const double raise = isWeighed ? 2 * (1 - weight) * BLUE_RAISE : BLUE_RAISE;
    const double factor = isWeighed ? 2 - weight : 1.7;
    return Join(KeepApart(Lighten(c, raise, factor), b));
}

} // namespace utility
