#include "utility/db/copy/TableCheck.h"

#include "database/transfer/CellFault.h"
#include "database/transfer/TableReader.h"
#include "platform/system/Clock.h"

#include "utility/db/copy/CellWords.h"
#include "utility/host/Interrupt.h"
#include "utility/output/RowProgress.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace utility
{

namespace
{

constexpr std::int64_t STEP_ROWS = 1000; // between two looks at the user

/// By column, fault and what SQLite holds there.
using COddMap = std::map<std::tuple<std::size_t, ECellFault, std::string>, COddCells>;

void CountOddCells(const CTableReader& reader, COddMap& odd)
{
    for (std::size_t column = 0; column < reader.GetColumns().size(); column++)
    {
        const std::string storage(reader.FindWrongStorage(column));
        const ECellFault fault =
            storage.empty() ? FindOddCell(reader.GetColumns()[column], reader.GetValue(column))
                            : ECellFault::WrongStorage;
        if (fault == ECellFault::None)
            continue;
        COddCells& cells = odd[{column, fault, storage}];
        if (cells.m_Count++ > 0)
            continue;
        cells.m_Column = reader.GetColumns()[column].Name;
        cells.m_Words = WordCellFault(fault, storage);
        cells.m_FirstRow = reader.GetRowNumber();
    }
}

} // namespace

bool CheckTable(CDatabase& database, CTableCheck& check)
{
    CRowProgress progress(check.m_Table, 0);
    const std::uint64_t start = GetTickCount();
    CTableReader reader(database, check.m_Table);
    COddMap odd;
    while (reader.Next())
    {
        if (check.m_Rows == 0)
            check.m_FirstRowTime = GetTickCount() - start;
        if (check.m_Rows++ % STEP_ROWS == 0)
        {
            progress.Step(check.m_Rows, check.m_Rows);
            if (IsInterrupted())
                return false;
        }
        CountOddCells(reader, odd);
    }
    check.m_Time = GetTickCount() - start;
    for (const auto& [key, cells] : odd)
        check.m_Odd.push_back(cells);
    std::stable_sort(check.m_Odd.begin(), check.m_Odd.end(),
                     [](const COddCells& left, const COddCells& right)
                     { return left.m_FirstRow < right.m_FirstRow; });
    return true;
}

} // namespace utility
