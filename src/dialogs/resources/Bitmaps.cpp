#include "dialogs/resources/Bitmaps.h"

namespace utility
{

namespace
{

constexpr COLORREF SHADOW = SystemColour(16);
constexpr COLORREF LIGHT = SystemColour(20);

constexpr COLORREF TEXT = SystemColour(8);
constexpr COLORREF ACTIVE = RGB(0, 112, 192);

constexpr CPixelPicture OWN_BITMAPS[] = {
    // A branch that can be opened
    CPixelPicture(10602, {{'#', TEXT}}, R"(
.........
...#.....
...##....
...###...
...####..
...###...
...##....
...#.....
.........
)"),
    // The corner to pull at: ridges
    CPixelPicture(10686, {{'#', SHADOW}, {'-', LIGHT}}, R"(
...........-
..........-#
.........-##
........-##.
.......-##.-
......-##.-#
.....-##.-##
....-##.-##.
...-##.-##.-
..-##.-##.-#
.-##.-##.-##
-##.-##.-##.
)"),
    // The same of styled dialogs: dots
    CPixelPicture(10765, {{'#', SHADOW}, {'-', LIGHT}}, R"(
............
.........##.
.........##-
..........--
.....##..##.
.....##-.##-
......--..--
.##..##..##.
.##-.##-.##-
..--..--..--
............
............
)"),
    // A column's filter: not at work, and at work
    CPixelPicture(10748, {{'#', SHADOW}}, R"(
...........
.#########.
..#.....#..
...#...#...
....#.#....
....#.#....
....#.#....
....###....
...........
)"),
    CPixelPicture(10749, {{'#', ACTIVE}}, R"(
...........
.#########.
..#######..
...#####...
....###....
....###....
....###....
....###....
...........
)"),
};

} // namespace

std::span<const CPixelPicture> GetOwnBitmaps()
{
    return OWN_BITMAPS;
}

} // namespace utility
