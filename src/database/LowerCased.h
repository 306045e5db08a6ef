#pragma once

#include "platform/base/String.h"

namespace utility
{

/// A copy by the library's own case rule, for look-ups and tests that ignore case.
inline CString LowerCased(CString text)
{
    text.MakeLower();
    return text;
}

} // namespace utility
