#pragma once

#include "platform/base/String.h"

#include <ostream>

namespace utility
{

/// Shows a text in a failing line: quoted, in UTF-8, other units than printable ones as escapes.
void PrintTo(const CString& text, std::ostream* stream);

} // namespace utility
