#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <string_view>

namespace utility
{

/// The statement to run for a text that may be a table's name alone.
///
///     Stock            SELECT * FROM [Stock]
///     [my stock]       SELECT * FROM [my stock]
///     main.Stock       SELECT * FROM main.Stock
///     SELECT 1         as it stands, as is everything else of more than one word
UTILITY_CORE_API CString CompleteSelect(std::u16string_view text);

/// The one table whose rows a SELECT shows, with its delimiters; empty where its rows cannot be
/// changed one by one: a join, a union, groups, DISTINCT, no table.
UTILITY_CORE_API CString FindEditableTable(std::u16string_view sql);

} // namespace utility
