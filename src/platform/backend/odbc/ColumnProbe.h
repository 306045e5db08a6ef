#pragma once

#include "platform/backend/odbc/Parameter.h"

#include <deque>
#include <string>
#include <vector>

namespace utility
{

/// What a driver that steps through its rows does not tell of a result column.
struct CProbedColumn
{
    short Type = 0;   // 0 leaves what the driver says
    std::string Name; // empty likewise
};

/// Asks SQLite, beside a prepared query that was not executed yet, for what its driver hides: it
/// calls each expression a text, and names a column by what stands behind the last dot.
///
///     the expression's first value     type
///     integer of 32 bits, longer       SQL_INTEGER, SQL_BIGINT
///     real, blob                       SQL_DOUBLE, SQL_BINARY
///     text, NULL, or no row at all     as the driver says
///
/// The first row of a query with expressions is therefore computed twice, any other is only
/// prepared twice. What cannot stand as part of another query (PRAGMA) stays as the driver says.
/// `sql` is the statement as it was prepared, without an end.
std::vector<CProbedColumn> ProbeColumns(void* connection, void* prepared, const std::string& sql,
                                        std::deque<CParameter>& parameters);

} // namespace utility
