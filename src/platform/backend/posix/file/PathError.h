#pragma once

#include "platform/base/Types.h"

#include <string>

namespace utility
{

/// The classic code of a failed call on a disk path: an absent name is 2 in a folder that is there
/// and 3 elsewhere.
DWORD PathErrorCode(int error, const std::string& diskPath);

/// Makes it the thread's last error; always false.
bool FailOnPath(int error, const std::string& diskPath);

} // namespace utility
