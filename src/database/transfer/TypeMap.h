#pragma once

#include "database/transfer/SourceKind.h"
#include "database/transfer/TransferColumn.h"
#include "platform/base/Export.h"

#include <vector>

namespace utility
{

struct CODBCFieldInfo;

/// What a column of a source holds, from what its driver says of it.
///
///     PostgreSQL    NUMERIC without limits is told as (28, 6): any number of digits
///     texts         one as long as its driver counts at most has no limit
UTILITY_CORE_API CTransferColumn ReadColumn(ESourceKind source, const CODBCFieldInfo& info);

/// The same of SQLite, from the type that the column was declared with, of which its driver tells
/// half: DECIMAL(12,3) is a number with digits, and only a length that was written down is one.
UTILITY_CORE_API CTransferColumn ReadDeclaredColumn(const CODBCFieldInfo& info,
                                                    const CString& declared, bool isNullable);

/// Columns as another kind of source must hold them: whole numbers of SQLite have 64 bits whatever
/// they are called, and those of MariaDB may be unsigned, which takes a size more.
UTILITY_CORE_API std::vector<CTransferColumn> WidenColumns(ESourceKind source, ESourceKind target,
                                                           std::vector<CTransferColumn> columns);

/// The name of a column's type in a target. In MariaDB a text with a length of up to 255 stands in
/// the row unless `isRowTooLong`, any other outside.
UTILITY_CORE_API CString ComposeColumnType(ESourceKind target, const CTransferColumn& column,
                                           bool isRowTooLong = false);

/// The statement that makes a table for columns; `table` is plain, not delimited. It has no keys,
/// indexes or presets.
///
/// Where a row of MariaDB would be too long, its texts become LONGTEXT, which stand outside.
UTILITY_CORE_API CString ComposeCreateTable(ESourceKind target, const CString& table,
                                            const std::vector<CTransferColumn>& columns);

} // namespace utility
