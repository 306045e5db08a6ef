#pragma once

#include "platform/base/Types.h"

/// Kinds of pictures that a control may show.
namespace utility
{

constexpr WPARAM IMAGE_BITMAP = 0;
constexpr WPARAM IMAGE_ICON = 1;

} // namespace utility
