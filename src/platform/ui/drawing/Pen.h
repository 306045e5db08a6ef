#pragma once

#include "platform/base/Colour.h"
#include "platform/ui/drawing/GdiObject.h"

namespace utility
{

constexpr int PS_SOLID = 0;
constexpr int PS_DASH = 1;
constexpr int PS_DOT = 2;
constexpr int PS_DASHDOT = 3;
constexpr int PS_NULL = 5; // draws nothing

/// How lines are drawn; a width of 0 or 1 is one pixel.
class UTILITY_UI_API CPen : public CGdiObject
{
    DECLARE_DYNAMIC(CPen)

public:
    CPen() = default;
    CPen(int style, int width, COLORREF colour) { CreatePen(style, width, colour); }

    /// False, and nothing is changed, if the pen is made already or the width is below 0.
    bool CreatePen(int style, int width, COLORREF colour);
    bool DeleteObject() override;

    int GetStyle() const { return m_Style; }
    int GetWidth() const { return m_Width; }
    COLORREF GetColour() const { return m_Colour; }

private:
    bool m_IsMade = false;
    int m_Style = PS_SOLID;
    int m_Width = 1;
    COLORREF m_Colour = 0;
};

} // namespace utility
