#pragma once

namespace utility
{

class CDbQuery;
class CJsonWriter;
class CString;

/// The rows to show as a table, with a line below that counts them: "20 of 33552 rows, 120 ms".
void PrintQueryTable(CDbQuery& query);

/// As one JSON list of objects, the columns being their keys; numbers of number columns are
/// numbers, NULL there is null.
void PrintQueryJson(CDbQuery& query);

/// One cell of such an object, behind its key.
void WriteCell(CJsonWriter& json, const CString& text, bool isNumeric);

/// As lines of values with commas between, the column names first; values are quoted as RFC 4180
/// tells, lines end in LF.
void PrintQueryCsv(CDbQuery& query);

} // namespace utility
