#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <optional>

namespace utility
{

/// The value of a variable of the environment, in UTF-8 there; none if it is not set.
///
/// Names count case. Any thread, as long as none changes the environment.
UTILITY_CORE_API std::optional<CString> _wgetenv(const CString& name);

} // namespace utility
