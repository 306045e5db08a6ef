#pragma once

#include "utility/command/Command.h"

namespace utility
{

/// `path list`: the files of folders, once or as they change.
CCommand PathListCommand();

} // namespace utility
