#pragma once

#include "platform/backend/odbc/DriverQuirks.h"
#include "platform/db/ODBCFieldInfo.h"

#include <array>
#include <chrono>
#include <string_view>

namespace utility
{

/// What a driver's date tells of the one that its source holds.
enum class EDateTrust
{
    Sure,
    Doubtful, // to be read again as a text, which tells
    None      // the source holds what no date of the driver says
};

/// Which dates of a column are not what the source holds.
///
/// PostgreSQL's driver reads years of four digits. What it cannot read it fills from the present
/// day, at midnight; infinity becomes the last second of 9999 or a year before Christ. MariaDB's
/// gives the zero date as NULL, which shows in a column that takes no NULL.
class CDateDoubt
{
public:
    CDateDoubt() = default;
    CDateDoubt(EOddDates oddDates, const CODBCFieldInfo& column);

    /// Before each fetch: the present day is the one of the fetch or, at midnight, the next.
    void NoteToday();

    EDateTrust Judge(const TIMESTAMP_STRUCT& date) const;
    bool IsNullAValue() const { return m_NullIsAValue; }

    /// The text that the driver makes of the doubtful date is of one that it could read.
    static bool IsReadable(std::string_view text);

private:
    bool m_MayBeMadeUp = false;
    bool m_NullIsAValue = false;
    std::array<std::chrono::month_day, 2> m_Days{};
};

} // namespace utility
