#include "text/Colours.h"

#include <gtest/gtest.h>

#include <cmath>

namespace utility
{

// Expected values come from a transcription of the formulas in another language.

TEST(ColoursTest, GreyDecidesTheContrast)
{
    const struct
    {
        COLORREF m_Colour;
        COLORREF m_Grey;
        COLORREF m_Contrast;
    } cases[] = {
        {0x000000, 0x000000, 0xE1E1E1}, {0xFFFFFF, 0xFFFFFF, 0x282828},
        {0x0000FF, 0x4C4C4C, 0xE1E1E1}, {0x00FF00, 0x969696, 0x282828},
        {0xFF0000, 0x1C1C1C, 0xE1E1E1}, {0x123456, 0x3A3A3A, 0xE1E1E1},
        {0x808080, 0x7F7F7F, 0xE1E1E1}, // the sum is cut below 128
        {0x818181, 0x818181, 0x282828},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Colour);
        EXPECT_EQ(ColourToGreyScale(row.m_Colour), row.m_Grey);
        EXPECT_EQ(ColourContrast(row.m_Colour), row.m_Contrast);
    }
}

TEST(ColoursTest, EnhancingTurnsRoundOnADarkBackground)
{
    EXPECT_EQ(ColourEnhance(0x406080, 0xFFFFFF, 0.5), 0x203040U);
    EXPECT_EQ(ColourEnhance(0x406080, 0x000000, 0.5), 0x6090C0U);
    EXPECT_EQ(ColourEnhance(0xC0C0C0, 0xFFFFFF, 1.5), 0x202020U); // low 8 bits
    EXPECT_EQ(ColourEnhance(0x102030, 0x000000, 3.0), 0xF0E0D0U); // also of what is negative
    EXPECT_EQ(ColourEnhance(0x102030, 0xFFFFFF, 1e300), 0U);
    EXPECT_EQ(ColourEnhance(0x102030, 0xFFFFFF, std::nan("")), 0U);
}

TEST(ColoursTest, UniformLowlightHasItsCases)
{
    const struct
    {
        COLORREF m_First;
        COLORREF m_Second;
        COLORREF m_Result;
    } cases[] = {
        {0xFFFFFF, 0x406080, 0x334C66}, // light: 80 in 100
        {0xFFFFFF, 0x000000, 0xCCCCCC}, {0x000000, 0x000000, 0x2D2D2D},
        {0x000000, 0xFF0000, 0xFF5F5F},                                 // pure blue
        {0x000000, 0xF60909, 0xF66868}, {0x000000, 0xF50000, 0xF70202}, // not blue enough
        {0x000000, 0xF60A00, 0xF90D03},                                 // not pure enough
        {0x202020, 0x30C0F0, 0x42D2F9},                                 // runs over to 249
        {0x000080, 0x000000, 0x030383}, {0x000000, 0xFFFFFF, 0xF9F9F9},
        {0x000000, 0x010101, 0x010101},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(testing::Message() << row.m_First << " " << row.m_Second);
        EXPECT_EQ(ColourUniformLowlight(row.m_First, row.m_Second), row.m_Result);
    }
}

TEST(ColoursTest, LowlightHasItsCases)
{
    const struct
    {
        COLORREF m_Colour;
        COLORREF m_Background;
        double m_Weight;
        COLORREF m_Result;
    } cases[] = {
        {0x112233, 0x445566, 0, 0x445566},
        {0x112233, 0x445566, 1, 0x112233},
        {0x204060, 0x101010, 0.25, 0x141C24}, // dark background: mixed
        {0x204060, 0x101010, -1, 0x182838},
        {0x204060, 0x101010, 2, 0x182838},
        {0x204060, 0xFFFFFF, -1, 0x507090}, // light background: brightened
        {0x204060, 0xFFFFFF, 0.25, 0x547494},
        {0xFF0000, 0xFEFEFE, -1, 0xFF5F5F}, // pure blue
        {0xFF0000, 0xFEFEFE, 0.5, 0xFF5F5F},
        {0xFF0000, 0xFFFFFF, 0.5, 0xFF7F7F}, // the same blue: mixed
        {0x970909, 0xFFFFFF, -1, 0x976868},
        {0x960000, 0xFFFFFF, -1, 0xA10B0B}, // not blue enough
        {0xFF60FF, 0xFFFFFF, 0.5, 0xFFAFFF},
        {0x909090, 0xF5F5F5, -1, 0xDBDBDB},  // grey near white, darkened
        {0x8F8F8F, 0xFFF8F8, 0.3, 0xF3F3F3}, // that background is no grey
        {0xA0A0A0, 0xF0F0F0, -1, 0xF9F9F9},  // and that one not near white
        {0x888888, 0xFFFFFF, -1, 0xE7E7E7},
        {0x8E8E8E, 0xFFFFFF, -1, 0xD8D8D8},
        {0x0000C0, 0xFFFFFF, -1, 0x2828E8},
    };

    for (const auto& row : cases)
    {
        SCOPED_TRACE(testing::Message()
                     << row.m_Colour << " " << row.m_Background << " " << row.m_Weight);
        EXPECT_EQ(ColourLowlight(row.m_Colour, row.m_Background, row.m_Weight), row.m_Result);
    }
}

} // namespace utility
