#pragma once

#include "utility/csv/CsvFormat.h"

namespace utility
{

/// Tells each line of a CSV file that loses something when it is read, or whose count of fields is
/// not the header's; a summary if there is none. A result of the tool. A failing read raises
/// `CFileException`.
int CheckCsvFile(const CString& path, const CCsvFormat& format);

} // namespace utility
