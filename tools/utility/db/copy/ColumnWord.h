#pragma once

#include "database/transfer/TransferColumn.h"

namespace utility
{

/// Reads a column of a table to be made; false, and the reason is told, if it is none.
///
///     Name                    a text of 255 characters
///     Name:text(40)           and text, for one of any length
///     Price:decimal(12,3)     likewise decimal
///     Stock:integer           also boolean, smallint, bigint, real, date, time, timestamp, binary
[[nodiscard]] bool ReadColumnWord(const CString& word, CTransferColumn& column);

} // namespace utility
