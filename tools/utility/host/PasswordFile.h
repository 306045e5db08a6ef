#pragma once

#include "platform/base/String.h"

namespace utility
{

/// The first line of a file as a password. False with the last error set if there is none; a file
/// that other users may read gets a warning.
[[nodiscard]] bool ReadPasswordFile(const CString& path, CString& password);

} // namespace utility
