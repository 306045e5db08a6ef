#pragma once

#include "platform/base/Export.h"

namespace utility
{

enum class EStandardStream
{
    Input,
    Output,
    Error
};

/// Whether a person sits at the other end of a standard stream of the process; false for a file, a
/// pipe and a closed stream.
UTILITY_CORE_API bool IsTerminal(EStandardStream stream);

} // namespace utility
