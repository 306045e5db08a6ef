#pragma once

#include "platform/base/Colour.h"
#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CRect;
class CString;

// With GetSystemMetrics
constexpr int SM_CXSCREEN = 0; // the primary screen
constexpr int SM_CYSCREEN = 1;
constexpr int SM_CXVSCROLL = 2;
constexpr int SM_CXEDGE = 45;
constexpr int SM_CXMENUSIZE = 54;
constexpr int SM_XVIRTUALSCREEN = 76; // the rectangle around all screens
constexpr int SM_YVIRTUALSCREEN = 77;
constexpr int SM_CXVIRTUALSCREEN = 78;
constexpr int SM_CYVIRTUALSCREEN = 79;
constexpr int SM_CMONITORS = 80;

// With GetSysColor
constexpr int COLOR_INACTIVECAPTION = 3; // of an inactive window
constexpr int COLOR_MENU = 4;
constexpr int COLOR_WINDOW = 5;
constexpr int COLOR_MENUTEXT = 7;
constexpr int COLOR_WINDOWTEXT = 8;
constexpr int COLOR_HIGHLIGHT = 13;
constexpr int COLOR_HIGHLIGHTTEXT = 14;
constexpr int COLOR_BTNFACE = 15;
constexpr int COLOR_BTNSHADOW = 16;
constexpr int COLOR_GRAYTEXT = 17;
constexpr int COLOR_BTNTEXT = 18;

constexpr UINT SPI_GETWORKAREA = 48; // of the primary screen, into a CRect

/// Sizes of the desktop, in pixels at 96 dots per inch; 0 for a number that is none of the above.
UTILITY_UI_API int GetSystemMetrics(int metric);

/// False, and `result` keeps its preset, for another action.
UTILITY_UI_API bool SystemParametersInfoW(UINT action, UINT size, CRect* result, UINT flags = 0);

/// A colour of the desktop's palette, which may be a light or a dark one; black for a number that
/// is none of the above.
UTILITY_UI_API COLORREF GetSysColor(int index);

/// Dots per inch that layout counts with: 96, whatever the screen's scale.
UTILITY_UI_API int GetScreenDotsPerInch();

/// `value * numerator / denominator`, to the nearest, halves away from 0; -1 for a denominator
/// of 0.
UTILITY_UI_API int MulDiv(int value, int numerator, int denominator);

} // namespace utility
