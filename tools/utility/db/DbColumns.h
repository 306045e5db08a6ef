#pragma once

#include "platform/base/String.h"

#include <vector>

namespace utility
{

class CDBADatabase;

/// The table's columns in their order. Refusals raise CDBException.
std::vector<CString> ReadColumnNames(CDBADatabase& database, const CString& table);

/// The column's place among the names, in any case of letters; -1 if it is not there.
int ColumnPlace(const std::vector<CString>& columns, const CString& name);

/// A table as statements name it; a "]" within is doubled.
CString DelimitTable(const CDBADatabase& database, const CString& name);

/// Whether the source takes the column, of an SQL_ type, for numbers.
bool IsNumericType(short type);

/// Says that a table has no such column, and which one was likely meant.
///
///     'Parts' has no column 'Valeu', did you mean 'Value'?
///     'Parts' has no column 'Weight'; it has Name, Value
void TellNoColumn(const CString& table, const CString& name, const std::vector<CString>& columns);

} // namespace utility
