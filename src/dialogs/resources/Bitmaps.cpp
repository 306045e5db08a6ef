#include "dialogs/resources/Bitmaps.h"

namespace utility
{

namespace
{

constexpr COLORREF SHADOW = SystemColour(16);
constexpr COLORREF LIGHT = SystemColour(20);

constexpr CPixelPicture OWN_BITMAPS[] = {
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
};

} // namespace

std::span<const CPixelPicture> GetOwnBitmaps()
{
    return OWN_BITMAPS;
}

} // namespace utility
