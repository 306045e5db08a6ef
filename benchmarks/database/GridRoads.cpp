#include "database/DBClientFilter.h"
#include "database/DBClientFilterSet.h"
#include "database/DBFieldRules.h"
#include "database/FilterOperators.h"
#include "database/OGDynRecordset.h"
#include "database/OGDynSortInfo.h"
#include "platform/base/Encoding.h"
#include "platform/base/collections/PtrList.h"
#include "platform/db/DBException.h"

#include "OurRoads.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <stdexcept>
#include <thread>
#include <unistd.h>

using namespace utility;

namespace
{

constexpr auto UNTIL_UNDER_WAY = std::chrono::milliseconds(300);
constexpr LPCWSTR VALUE_COLUMN = u"Value";

/// What the process holds of memory, without what its heap keeps for later.
std::int64_t ReadResidentBytes()
{
    malloc_trim(0);
    std::ifstream status("/proc/self/statm");
    std::int64_t pages = 0;
    status >> pages >> pages;
    return pages * sysconf(_SC_PAGESIZE);
}

using CClock = std::chrono::steady_clock;

/// Runs what nobody would wait for and stops it from another thread.
double MeasureCancel(COGDynRecordset& grid, const std::function<void()>& run)
{
    CClock::time_point stopped;
    std::jthread stopper(
        [&]
        {
            std::this_thread::sleep_for(UNTIL_UNDER_WAY);
            stopped = CClock::now();
            grid.Cancel();
        });
    try
    {
        run();
    }
    catch (CDBException* exception)
    {
        const CClock::time_point ended = CClock::now();
        const CExceptionGuard guard(exception);
        stopper.join();
        if (exception->m_Failure != EDBFailure::Cancelled)
            throw std::runtime_error(ToUtf8(exception->GetErrorText().View()));
        return std::chrono::duration<double>(ended - stopped).count();
    }
    throw std::runtime_error("nothing was stopped");
}

LPCWSTR LongQuery(EServer server)
{
    switch (server)
    {
    case EServer::PostgreSQL:
        return u"SELECT pg_sleep(60)";
    case EServer::MariaDB:
        return u"SELECT SLEEP(60) FROM (SELECT 1 UNION SELECT 2) AS twice";
    case EServer::SQLite:
        return u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
               u"2000000000) SELECT COUNT(*) AS c FROM n";
    }
    return u"";
}

void Fetch(COGDynRecordset& grid)
{
    grid.Open(AFX_DB_USE_DEFAULT_TYPE, FromUtf8(CStockTable::SELECT));
    grid.MoveLast();
}

void FilterByValue(COGDynRecordset& grid, LPCWSTR low, LPCWSTR high)
{
    auto filters = std::make_unique<CDBClientFilterSet>();
    filters->AddFilter(
        new CDBClientFilter(VALUE_COLUMN, FILTER_BETWEEN, low, high, PARSE_RESISTOR));
    grid.ApplyLocalFilters(filters.release());
    grid.MoveLast();
    if (grid.IsEOF() || grid.GetRecordCount() == 0)
        throw std::runtime_error("a filter without matches");
}

double SecondsOf(const std::function<void()>& step)
{
    const CClock::time_point start = CClock::now();
    step();
    return std::chrono::duration<double>(CClock::now() - start).count();
}

} // namespace

std::int64_t MeasureGrowth(CStockTable& table)
{
    const std::int64_t before = ReadResidentBytes();
    COGDynRecordset grid(&table.GetDatabase());
    Fetch(grid);
    return ReadResidentBytes() - before;
}

double MeasureCancelOfQuery(CStockTable& table)
{
    COGDynRecordset grid(&table.GetDatabase());
    return MeasureCancel(grid,
                         [&] { grid.Open(AFX_DB_USE_DEFAULT_TYPE, LongQuery(table.GetServer())); });
}

double MeasureCancelOfFetch(CStockTable& table)
{
    COGDynRecordset grid(&table.GetDatabase());
    return MeasureCancel(grid,
                         [&]
                         {
                             grid.Open(AFX_DB_USE_DEFAULT_TYPE,
                                       u"SELECT a.* FROM Stock a, Stock b, Stock c");
                             grid.MoveLast();
                         });
}

double MeasureIdleStep(CStockTable& table)
{
    constexpr DWORD STEP_MILLISECONDS = 10;
    COGDynRecordset grid(&table.GetDatabase());
    grid.Open(AFX_DB_USE_DEFAULT_TYPE, FromUtf8(CStockTable::SELECT));
    double longest = 0;
    for (bool isMore = true; isMore;)
        longest =
            std::max(longest, SecondsOf([&] { isMore = grid.FetchAhead(STEP_MILLISECONDS); }));
    return longest;
}

double MeasureSecondFilter(CStockTable& table)
{
    COGDynRecordset grid(&table.GetDatabase());
    Fetch(grid);
    FilterByValue(grid, u"4k7", u"100k");
    return SecondsOf([&] { FilterByValue(grid, u"10k", u"47k"); });
}

double MeasureSort(CStockTable& table)
{
    COGDynRecordset grid(&table.GetDatabase());
    Fetch(grid);
    COGDynSortInfo key{VALUE_COLUMN, PARSE_RESISTOR, true};
    CPtrList keys;
    keys.AddTail(&key);
    return SecondsOf([&] { grid.SortFilteredRecords(keys); });
}
