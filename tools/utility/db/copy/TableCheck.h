#pragma once

#include "platform/base/String.h"

#include <cstdint>
#include <vector>

namespace utility
{

class CDatabase;

/// The odd cells of one kind in one column.
struct COddCells
{
    CString m_Column;
    CString m_Words;
    std::int64_t m_Count = 0;
    std::int64_t m_FirstRow = 0;
};

/// What reading a whole table showed.
struct CTableCheck
{
    CString m_Table;
    std::int64_t m_Rows = 0;
    std::uint64_t m_FirstRowTime = 0; // ms
    std::uint64_t m_Time = 0;         // ms
    std::vector<COddCells> m_Odd;     // by their first rows
};

/// Reads the table of the check to its end and fills in the rest; false if the user stopped it.
/// Refusals raise CDBException.
bool CheckTable(CDatabase& database, CTableCheck& check);

} // namespace utility
