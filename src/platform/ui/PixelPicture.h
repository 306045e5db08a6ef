#pragma once

#include "platform/base/Colour.h"
#include "platform/base/Size.h"
#include "platform/base/Types.h"

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>

namespace utility
{

/// A pixel that shows what is behind the picture.
constexpr COLORREF CLEAR_PIXEL = 0xFFFFFFFF;

/// A colour of the desktop by its number, so that a picture fits a dark one as well.
constexpr COLORREF SystemColour(int index)
{
    return 0x80000000U | static_cast<COLORREF>(index);
}
constexpr bool IsSystemColour(COLORREF colour)
{
    return colour != CLEAR_PIXEL && (colour & 0x80000000U) != 0;
}
constexpr int GetSystemColourIndex(COLORREF colour)
{
    return static_cast<int>(colour & 0xFF);
}

/// What a letter of a picture's rows stands for.
struct CPixelColour
{
    char m_Letter = '.';
    COLORREF m_Colour = CLEAR_PIXEL;
};

/// A small picture by id, drawn in the source: one row of letters a line, one letter a pixel.
///
///     constexpr CPixelPicture TICK(11001, {{'#', RGB(0, 128, 0)}}, R"(
///     ....#
///     #..#.
///     .##..
///     )");
///
/// A full stop is clear. Rows of different lengths and letters without a colour do not compile.
class CPixelPicture
{
public:
    consteval CPixelPicture(UINT id, std::initializer_list<CPixelColour> colours, const char* rows)
        : m_Id(id),
          m_Rows(Inner(rows)),
          m_Width(static_cast<int>(m_Rows.find('\n')))
    {
        for (const CPixelColour& colour : colours)
            m_Colours.at(m_ColourCount++) = colour;
        for (std::size_t i = 0; i < m_Rows.size(); i++)
        {
            const bool isAtRowEnd =
                i % (static_cast<std::size_t>(m_Width) + 1) == static_cast<std::size_t>(m_Width);
            if ((m_Rows[i] == '\n') != isAtRowEnd)
                throw "the rows differ in length";
            if (m_Rows[i] != '\n')
                ColourOf(m_Rows[i]);
        }
    }

    constexpr UINT GetId() const { return m_Id; }
    constexpr CSize GetSize() const
    {
        return {m_Width, static_cast<LONG>(m_Rows.size()) / (m_Width + 1)};
    }
    /// A colour, a colour of the desktop, or CLEAR_PIXEL; the place must be inside.
    constexpr COLORREF GetPixel(int x, int y) const
    {
        return ColourOf(m_Rows[static_cast<std::size_t>(y * (m_Width + 1) + x)]);
    }

private:
    /// Without the line end in front, which only makes the source readable.
    static constexpr std::string_view Inner(std::string_view rows)
    {
        return rows.starts_with('\n') ? rows.substr(1) : rows;
    }

    constexpr COLORREF ColourOf(char letter) const
    {
        for (std::size_t i = 0; i < m_ColourCount; i++)
        {
            if (m_Colours[i].m_Letter == letter)
                return m_Colours[i].m_Colour;
        }
        if (letter != '.')
            throw "a letter has no colour";
        return CLEAR_PIXEL;
    }

    UINT m_Id;
    std::string_view m_Rows; // each with its line end
    int m_Width;
    std::array<CPixelColour, 8> m_Colours;
    std::size_t m_ColourCount = 0;
};

} // namespace utility
