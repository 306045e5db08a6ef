#pragma once

#include "database/transfer/CellFault.h"

#include <string>

namespace utility
{

/// What is odd about a value, as the end of a sentence that names it: "has a NUL in its text".
CString WordCellFault(ECellFault fault, const std::string& storage = {});

} // namespace utility
