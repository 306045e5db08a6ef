#pragma once

#include "platform/base/Export.h"

namespace utility
{

/// Writes `in` with its entities replaced, and a terminator, to `out`; returns the units written
/// without it.
///
/// `out` needs room for `in` and may be `in`. An entity ends in ";" and its name counts case; an
/// unknown name and a number that is no character stay as text.
///
///     R&amp;D      R&D
///     &#x3a9;      Ω       also &#937;
///     &amp;lt;     &lt;    replaced once
UTILITY_CORE_API unsigned int DecodeHtmlEntitiesUtf8(char16_t* out, const char16_t* in);

} // namespace utility
