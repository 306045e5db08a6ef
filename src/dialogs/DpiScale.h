#pragma once

#include "platform/base/Export.h"

namespace utility
{

/// Pixels at 96 dots per inch and real ones. Here the window system scales, so scaling is off and
/// both are the same; layout code that asks stays right where it is not. User-interface thread.

/// Learns the scale of the screen; before, scaling is off.
UTILITY_UI_API void InitDpi();
UTILITY_UI_API bool IsDpiScaling();
/// A real length as one at 96 dots per inch, to the nearest.
UTILITY_UI_API int DpiUnScale(int value);

/// What one real pixel is at 96 dots per inch. A screen that misses them by less than a hundredth
/// counts as unscaled.
UTILITY_UI_API double CalcUnscaleFactor(int dotsPerInch);

/// How wide the main screen is if it has 96 dots per inch, which nobody knows of a screen.
UTILITY_UI_API int GetAssumedScreenWidthInMM();

} // namespace utility
