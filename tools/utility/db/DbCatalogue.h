#pragma once

#include "platform/base/String.h"

#include <vector>

namespace utility
{

class CDBADatabase;

/// The names of tables and views, sorted. False, and the reason is told, if the source does not
/// give them.
bool ReadTableNames(CDBADatabase& database, std::vector<CString>& names);

/// Prints those names. False, and the reason is told, if the source does
/// not give them.
bool PrintTables(CDBADatabase& database, bool json);

/// Prints name, type and length of a table's columns. Refusals raise CDBException.
void PrintFields(CDBADatabase& database, const CString& table, bool json);

} // namespace utility
