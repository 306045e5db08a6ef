#pragma once

#include "platform/base/Colour.h"
#include "platform/base/Export.h"

namespace utility
{

/// Readable and dimmed colours. A colour is light when its grey is above 127. What a formula gives
/// beyond a channel keeps its low 8 bits.

/// Its grey in all three channels.
UTILITY_CORE_API COLORREF ColourToGreyScale(COLORREF colour);

/// A text colour for a background: dark on a light one, light on a dark one.
UTILITY_CORE_API COLORREF ColourContrast(COLORREF background);

/// Each channel times `factor`; on a dark background times 2 - `factor`.
UTILITY_CORE_API COLORREF ColourEnhance(COLORREF colour, COLORREF background, double factor);

/// The second colour (black: the first) dimmed where the first is light, and brightened where it is
/// dark.
UTILITY_CORE_API COLORREF ColourUniformLowlight(COLORREF first, COLORREF second);

/// A colour drawn back towards its background. A `weight` from 0 (background) to 1 (colour) says
/// how far; any other leaves it to the function.
UTILITY_CORE_API COLORREF ColourLowlight(COLORREF colour, COLORREF background, double weight);

} // namespace utility
