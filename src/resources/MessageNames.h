#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

#include <string_view>

namespace utility
{

// The numbers of the messages that the library registers, as constants; their names stand beside
// them in MessageNames.def.
#define UTILITY_MESSAGE(number, constant, name) constexpr UINT constant = number;
#include "resources/MessageNames.def"
#undef UTILITY_MESSAGE

/// The first number that a registered message can have: the library's own begin here.
constexpr UINT FIRST_REGISTERED_MESSAGE = 0xC000;

/// How many numbers from there on are the library's own. Names that others register come behind.
constexpr UINT OWN_MESSAGE_COUNT = 0
#define UTILITY_MESSAGE(number, constant, name) +1
#include "resources/MessageNames.def"
#undef UTILITY_MESSAGE
    ;

/// The fixed number of a message of the library, or 0 for any other name. Case does not matter.
UTILITY_CORE_API UINT FindMessageName(std::u16string_view name);

/// The name of a message of the library, or the empty text for any other number.
UTILITY_CORE_API std::u16string_view GetMessageName(UINT number);

} // namespace utility
