#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/collections/StringArray.h"

namespace utility
{

class CCsvFileRowMap;

/// Fields that a line of a file may have; what is behind them is left out.
constexpr int CSV_FIELD_LIMIT = 1000;

/// Cuts at most `maxFields` fields off the front of a line and gives their count.
///
///     line        separator  fields
///     1,2,        ,          "1"  "2"  ""    a closing separator gives an empty field
///     "a,b", c    ,          "a,b"  "c"      unquoted fields are trimmed
///     "a"x,c      ,          "a"  "c"        what follows a closing quote is dropped
///     "a"x        ,          "a"
///     "a,b        ,          "a,b"           a quote that is not closed takes all
///     1;2         ;          "1"  "2"
///
/// `line` keeps what was not taken. The field of a closing separator counts even if that is past
/// `maxFields`: "a,b,c," with 2 gives "a", "b" and "". So `fields` has room for one more than
/// `maxFields`. Time is linear in the line's length.
UTILITY_CORE_API int BreakCSV(CString& line, CString* fields, int maxFields, char16_t separator);

/// Reads a whole file in the default code page: the fields of its first line that is not empty go
/// to `header`, those of each further one to `rows`, under the value of the key column.
///
/// The header's field count, or -1, and nothing is changed, if the file cannot be read or holds
/// nothing but empty lines. A row too short for the key column goes under the empty key. Of a line
/// longer than CSV_FIELD_LIMIT the rest is left out, which the trace log tells in context
/// "BreakCSV".
UTILITY_CORE_API int BreakCSV(const CString& path, CStringArray& header, int keyColumn,
                              CCsvFileRowMap& rows, char16_t separator);
/// The same with key column 0.
UTILITY_CORE_API int BreakCSV(const CString& path, CStringArray& header, CCsvFileRowMap& rows,
                              char16_t separator);

} // namespace utility
