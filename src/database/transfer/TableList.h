#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <vector>

namespace utility
{

class CDBADatabase;

/// The tables of a source in alphabetical order, without its views and without what it keeps for
/// itself; PostgreSQL lists those that are found without naming their schema. A source of no known
/// kind lists all that `ReadTableNames` gives.
UTILITY_CORE_API std::vector<CString> ListTables(CDBADatabase& database);

} // namespace utility
