#pragma once

namespace utility
{

class CBrowseRows;

/// Prints all rows as a table. The first thousand tell how wide the columns are, so that a long
/// table comes at once; what is wider stands out of its column, nothing is cut.
void PrintRows(CBrowseRows& rows);

/// Prints all rows as one JSON list of objects, the headings being their keys.
void PrintRowsJson(CBrowseRows& rows);

} // namespace utility
