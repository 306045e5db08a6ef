#include "platform/base/Encoding.h"
#include "platform/base/object/Exception.h"

#include "BoundLoop.h"
#include "OurRoads.h"
#include "Report.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <unistd.h>

// A table of parts on each of three servers, read, filtered, sorted and written by the library and
// beside it by hand-written ODBC, by the servers' own clients, by SOCI and by Qt.

using utility::EServer;

namespace
{

constexpr int BETWEEN_ADDED = 10; // rows in the table for each one added

struct COptions
{
    int Rows = 20'000;
    int Repeats = 3;
    std::string Server; // the only one, or empty for all
};

constexpr char USAGE[] = "DatabaseBenchmark [--rows=20000] [--repeats=3] [--server=SQLite]\n"
                         "  Prints a table a server in Markdown: ratios are to the bound loop.\n";

COptions ReadOptions(int count, char** arguments)
{
    COptions options;
    for (int index = 1; index < count; ++index)
    {
        const std::string text = arguments[index];
        if (text.starts_with("--rows="))
            options.Rows = std::atoi(text.c_str() + std::strlen("--rows="));
        else if (text.starts_with("--repeats="))
            options.Repeats = std::atoi(text.c_str() + std::strlen("--repeats="));
        else if (text.starts_with("--server="))
            options.Server = text.substr(std::strlen("--server="));
        else
            throw std::invalid_argument(USAGE);
    }
    if (options.Rows < 100 || options.Repeats < 1)
        throw std::invalid_argument("At least 100 rows and one repeat, please.\n");
    return options;
}

CTotal CountOnly(const CTotal& total)
{
    return {.Rows = total.Rows};
}

void MeasureReading(CReport& report, CStockTable& table, CBoundLoop& loop)
{
    const std::unique_ptr<IPeer> raw = ConnectRawClient(table);
    const std::unique_ptr<IPeer> soci = ConnectSoci(table);
    const std::unique_ptr<IPeer> qt = ConnectQt(table);
    report.Measure("rows to typed fields",
                   {{loop.GetName(), [&] { return loop.ReadRows(ALL_ROWS); }, ""},
                    {"ours, declared", [&] { return ReadDeclared(table); }, "1.3"},
                    {"ours, discovered", [&] { return ReadDiscovered(table); }, "1.3"},
                    {raw->GetName(), [&] { return raw->ReadRows(ALL_ROWS); }, ""},
                    {soci->GetName(), [&] { return soci->ReadRows(ALL_ROWS); }, ""},
                    {qt->GetName(), [&] { return qt->ReadRows(ALL_ROWS); }, ""}});
    const bool isServed = table.GetServer() != EServer::MariaDB;
    report.Measure("first screen",
                   {{loop.GetName(), [&] { return CountOnly(loop.ReadRows(SCREEN_ROWS)); }, ""},
                    {"ours", [&] { return ShowFirstScreen(table); }, isServed ? "50 ms" : "1.1"},
                    {raw->GetName(), [&] { return CountOnly(raw->ReadRows(SCREEN_ROWS)); }, ""},
                    {soci->GetName(), [&] { return CountOnly(soci->ReadRows(SCREEN_ROWS)); }, ""},
                    {qt->GetName(), [&] { return CountOnly(qt->ReadRows(SCREEN_ROWS)); }, ""}});
}

void MeasureGrid(CReport& report, CStockTable& table)
{
    report.Measure(
        "memory of all rows", "180 MB", [&] { return MeasureGrowth(table); }, "MB", 1e-6);
    report.Measure(
        "any fetched row", "10 us", [&] { return MeasureAnyRow(table); }, "us", 1e6);
    report.Measure(
        "longest idle step", "", [&] { return MeasureIdleStep(table); }, "ms", 1e3);
    report.Measure(
        "second value filter", "50 ms", [&] { return MeasureSecondFilter(table); }, "ms", 1e3);
    report.Measure(
        "sort by value", "500 ms", [&] { return MeasureSort(table); }, "ms", 1e3);
}

void MeasureServer(EServer server, const COptions& options)
{
    CStockTable table(server, options.Rows);
    CReport report(options.Repeats);
    CBoundLoop loop(table);
    MeasureReading(report, table, loop);
    MeasureGrid(report, table);
    const int added = options.Rows / BETWEEN_ADDED;
    report.Measure("rows added", {{loop.GetName(), [&] { return loop.AddRows(added); }, ""},
                                  {"ours", [&] { return AddRows(table, added); },
                                   server == EServer::SQLite ? "1.3" : ""}});
    report.Measure(
        "a query stopped", "100 ms", [&] { return MeasureCancelOfQuery(table); }, "ms", 1e3);
    report.Measure(
        "a fetch stopped", "100 ms", [&] { return MeasureCancelOfFetch(table); }, "ms", 1e3);
    report.Print(NameOf(server));
}

void PrintHead(const COptions& options)
{
    constexpr double GIGABYTE = 1 << 30;
    const double bytes =
        static_cast<double>(sysconf(_SC_PHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGESIZE));
    std::printf("%d rows of %d columns; %u cores, %.0f GB; medians of %d.\n\n", options.Rows,
                CStockTable::COLUMNS, std::thread::hardware_concurrency(), bytes / GIGABYTE,
                options.Repeats);
}

} // namespace

int main(int count, char** arguments)
{
    try
    {
        const COptions options = ReadOptions(count, arguments);
        PrintHead(options);
        for (const EServer server : utility::ALL_SERVERS)
            if (options.Server.empty() || options.Server == NameOf(server))
                MeasureServer(server, options);
        return EXIT_SUCCESS;
    }
    catch (const std::exception& failure)
    {
        std::fprintf(stderr, "%s\n", failure.what());
    }
    catch (utility::CException* failure)
    {
        const utility::CExceptionGuard guard(failure);
        std::fprintf(stderr, "%s\n", utility::ToUtf8(failure->GetErrorText().View()).c_str());
    }
    return EXIT_FAILURE;
}
