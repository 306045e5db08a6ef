#pragma once

#include "platform/ui/PixelPicture.h"

#include <span>

namespace utility
{

/// The library's own pictures, as CResourceTables shows them.
std::span<const CPixelPicture> GetOwnBitmaps();

} // namespace utility
