#pragma once

#include "platform/base/Types.h"

/// Numbers of the ODBC standard (ISO/IEC 9075-3) that the database classes are written in.
namespace utility
{

// Column types, in the classic numbering: dates are 9 to 11, never 91 to 93
constexpr short SQL_CHAR = 1;
constexpr short SQL_NUMERIC = 2;
constexpr short SQL_DECIMAL = 3;
constexpr short SQL_INTEGER = 4;
constexpr short SQL_SMALLINT = 5;
constexpr short SQL_FLOAT = 6;
constexpr short SQL_REAL = 7;
constexpr short SQL_DOUBLE = 8;
constexpr short SQL_DATE = 9;
constexpr short SQL_TIME = 10;
constexpr short SQL_TIMESTAMP = 11;
constexpr short SQL_VARCHAR = 12;
constexpr short SQL_LONGVARCHAR = -1;
constexpr short SQL_BINARY = -2;
constexpr short SQL_VARBINARY = -3;
constexpr short SQL_LONGVARBINARY = -4;
constexpr short SQL_BIGINT = -5;
constexpr short SQL_TINYINT = -6;
constexpr short SQL_BIT = -7;
constexpr short SQL_WCHAR = -8;
constexpr short SQL_WVARCHAR = -9;
constexpr short SQL_WLONGVARCHAR = -10;

// Carrier types: how a value lies in the program's memory
constexpr short SQL_C_CHAR = SQL_CHAR;
constexpr short SQL_C_BIT = SQL_BIT;
constexpr short SQL_C_UTINYINT = -28;
constexpr short SQL_C_BINARY = SQL_BINARY;
constexpr short SQL_C_SLONG = -16;
constexpr short SQL_C_SSHORT = -15;
constexpr short SQL_C_DOUBLE = SQL_DOUBLE;
constexpr short SQL_C_FLOAT = SQL_REAL;
constexpr short SQL_C_TIMESTAMP = SQL_TIMESTAMP;

// Fetch directions
constexpr WORD SQL_FETCH_NEXT = 1;
constexpr WORD SQL_FETCH_FIRST = 2;
constexpr WORD SQL_FETCH_LAST = 3;
constexpr WORD SQL_FETCH_PRIOR = 4;
constexpr WORD SQL_FETCH_ABSOLUTE = 5;
constexpr WORD SQL_FETCH_RELATIVE = 6;

// Return codes
constexpr RETCODE SQL_SUCCESS = 0;
constexpr RETCODE SQL_SUCCESS_WITH_INFO = 1;
constexpr RETCODE SQL_STILL_EXECUTING = 2;
constexpr RETCODE SQL_NO_DATA = 100;
constexpr RETCODE SQL_ERROR = -1;
constexpr RETCODE SQL_INVALID_HANDLE = -2;

// Lengths and options
constexpr int SQL_NTS = -3;       // a length: up to the terminator
constexpr int SQL_NULL_DATA = -1; // a length: the value is NULL
constexpr WORD SQL_CLOSE = 0;     // SQLFreeStmt: the cursor goes, the statement stays
constexpr WORD SQL_DROP = 1;      // SQLFreeStmt: the statement goes

// Nullability of a column
constexpr short SQL_NO_NULLS = 0;
constexpr short SQL_NULLABLE = 1;
constexpr short SQL_NULLABLE_UNKNOWN = 2;

} // namespace utility
