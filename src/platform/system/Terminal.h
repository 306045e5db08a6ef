#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

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

/// Asks for a line that does not show while it is typed: the prompt goes to the error output, the
/// answer comes from the standard input. False, and `text` keeps its preset, if no person sits
/// there or he gives up by Ctrl-C.
UTILITY_CORE_API bool ReadSecret(const CString& prompt, CString& text);

} // namespace utility
