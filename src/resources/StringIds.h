#pragma once

#include "platform/base/Types.h"

namespace utility
{

// The numbers of all texts, as constants; the texts stand beside them in Strings.def.
#define UTILITY_TEXT(id, name, text) constexpr UINT name = id;
#include "resources/Strings.def"
#undef UTILITY_TEXT

} // namespace utility
