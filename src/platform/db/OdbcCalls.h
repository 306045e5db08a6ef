#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/db/OdbcTypes.h"

#include <cstdint>

/// The direct calls with which a catalogue is read without a recordset; they stand in
/// platform/backend/odbc/OdbcCalls.cpp.
///
/// Results are ODBC return codes: pass them to `CDatabase::CheckHstmt`, and a refused one to
/// `AfxThrowDBException`. A null handle gives SQL_INVALID_HANDLE. One thread at a time for a
/// connection and its statements.
namespace utility
{

/// A statement of its own; it lives until SQLFreeStmt with SQL_DROP, or until the connection is
/// closed.
UTILITY_CORE_API RETCODE SQLAllocStmt(HDBC connection, HSTMT* statement);

/// Lists tables: of all catalogues, schemas and names where the argument is null; lengths may be
/// SQL_NTS.
///
/// The type list reads "'TABLE', 'VIEW', 'SYNONYM'". SQLite gets it without its blanks, as it finds
/// no view otherwise; on MariaDB a null catalogue means the current database, as it lists the whole
/// server otherwise.
UTILITY_CORE_API RETCODE SQLTablesW(HSTMT statement, LPCWSTR catalogue, short catalogueLength,
                                    LPCWSTR schema, short schemaLength, LPCWSTR table,
                                    short tableLength, LPCWSTR types, short typesLength);

/// The next row; SQL_NO_DATA behind the last.
UTILITY_CORE_API RETCODE SQLFetch(HSTMT statement);

/// The value of a column of the present row, counted from 1, as UTF-8 with a terminator (`carrier`
/// SQL_C_CHAR) or as bytes (SQL_C_BINARY).
///
/// `length` receives the bytes still to be read before this call, or SQL_NULL_DATA. A buffer too
/// small takes what fits and gives SQL_SUCCESS_WITH_INFO; the next call for the column goes on
/// behind it.
UTILITY_CORE_API RETCODE SQLGetData(HSTMT statement, WORD column, short carrier, void* buffer,
                                    std::int64_t capacity, std::int64_t* length);

/// Closes the cursor (SQL_CLOSE) or ends the statement (SQL_DROP).
UTILITY_CORE_API RETCODE SQLFreeStmt(HSTMT statement, WORD option);

} // namespace utility
