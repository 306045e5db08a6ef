#pragma once

#include "database/transfer/TransferColumn.h"
#include "platform/base/Export.h"
#include "platform/db/DbValue.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace utility
{

/// The one text of a value, the same from every source that holds it; false if it is none of its
/// type.
///
///     whole numbers, decimals   "-12.5" for "-0012.500" and "-1.25e+01"
///     real numbers              the shortest digits that read back as the same double
///     dates and times           "2024-01-31 12:30:45.5" for "2024-01-31T12:30:45.500";
///                               "0044-03-15 00:00:00 BC"; not "infinity", nor "2024-02-30"
///     texts and binaries        as they stand
[[nodiscard]] UTILITY_CORE_API bool MakeCellText(ETransferType type, const CDbValue& value,
                                                 std::string& text);

/// The year of such a text of a date, below 1 before Christ (0 is 1 BC).
UTILITY_CORE_API std::int64_t YearOf(std::string_view date);

/// Counts characters of UTF-8; -1 if it is none.
UTILITY_CORE_API std::int64_t CountCharacters(std::string_view bytes);

} // namespace utility
