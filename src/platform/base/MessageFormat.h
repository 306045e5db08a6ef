#pragma once

#include "platform/base/Export.h"
#include "platform/base/FormatArgument.h"
#include "platform/base/String.h"

namespace utility
{

/// A text made from a positional template and typed inserts.
///
///     %1 to %99        the insert as text (numbers as their plain decimal text)
///     %1!lu! %2!02d!   the insert by the printf form between the marks
///     %%               one percent sign
///     %n               a line end, CR LF
///     %0               ends the text
///     %x               any other unit stands for itself
///
/// Line feeds of the template stay as they are. A missing insert asserts in debug builds and is
/// empty otherwise.
UTILITY_CORE_API CString FormatMessageText(const char16_t* format, CFormatArguments arguments);

} // namespace utility
