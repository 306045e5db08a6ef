#pragma once

#include "database/transfer/TransferColumn.h"

#include <string_view>
#include <vector>

namespace utility
{

/// SQLite stores anything anywhere. These expressions, selected beside the columns, tell of a row
/// what stands where its column's type does not belong, as "|3=text|7=real" by column (a text
/// with a NUL, which no driver gives whole, as "NUL"); NULL if
/// nothing does. One stands for a hundred columns, which keeps it below the depth that SQLite
/// takes.
std::vector<CString> ComposeStorageChecks(const std::vector<CTransferColumn>& columns);

/// Which of the expressions tells of a column.
std::size_t StorageCheckOf(std::size_t column);

/// What such a text tells of a column; empty for nothing.
std::string_view FindStorage(std::string_view told, std::size_t column);

} // namespace utility
