#pragma once

#include "database/transfer/SourceKind.h"
#include "database/transfer/TransferColumn.h"
#include "platform/base/Export.h"
#include "platform/db/DbValue.h"

#include <string_view>

namespace utility
{

/// What is odd about a value, or keeps it out of a target.
enum class ECellFault : BYTE
{
    None,
    WrongStorage, // SQLite holds another kind of value than the column is for
    NulInText,
    BadUtf8,
    ZeroDate,    // MariaDB's 0000-00-00, or with a month or day of 0
    Infinity,    // of a date or a number, or no number at all
    NoValue,     // a text that is no date, time or number
    FarDate,     // a year outside 1 to 9999
    BeyondRange, // a whole number beyond its column's size, or beyond 64 bits
    TooLong,
    TooManyDigits,
    Null // where none is allowed
};

/// What is odd about a value in itself, whatever reads it next; a NULL never is.
UTILITY_CORE_API ECellFault FindOddCell(const CTransferColumn& column, const CDbValue& value);

/// Why a column of a target cannot hold a value of a source's column; None too where only the
/// target itself can tell.
UTILITY_CORE_API ECellFault FindMisfit(ESourceKind target, const CTransferColumn& to,
                                       const CTransferColumn& from, const CDbValue& value);

} // namespace utility
