#include "platform/db/Recordset.h"

#include "database/ODBCRecordset.h"
#include "platform/base/Encoding.h"
#include "platform/db/DBException.h"
#include "platform/db/Database.h"
#include "platform/db/FieldExchange.h"

#include <benchmark/benchmark.h>
#include <sql.h>
#include <sqlext.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

// Rows of twelve columns out of SQLite through its ODBC driver, into declared and into discovered
// fields, beside a bound SQLFetch loop written by hand; and any row of a fetched set.

namespace
{

constexpr int ROWS = 100'000;

/// A stock of parts in a file of its own, gone with the program.
class CStockFile
{
public:
    CStockFile()
        : m_Path(std::filesystem::temp_directory_path() /
                 ("utility-bench-" + std::to_string(getpid()) + ".db"))
    {
        m_Database.Open(nullptr, 0, 0, utility::FromUtf8(GetConnect()));
        m_Database.ExecuteSQL(
            u"CREATE TABLE [Stock] ([Id] INTEGER, [Name] VARCHAR(60), [Kind] VARCHAR(20), "
            u"[Maker] VARCHAR(40), [Value] VARCHAR(20), [Box] VARCHAR(10), [Price] DOUBLE, "
            u"[Weight] DOUBLE, [Count] INTEGER, [Made] TIMESTAMP, [Words] VARCHAR(200), [Bin] "
            u"INTEGER)");
        m_Database.ExecuteSQL(u"INSERT INTO [Stock] WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                              u"SELECT i + 1 FROM n WHERE i < 100000) SELECT i, "
                              u"'RES-' || i || '-0603', CASE i % 3 WHEN 0 THEN 'Resistor' WHEN 1 "
                              u"THEN 'Capacitor' ELSE 'Inductor' END, "
                              u"'Maker ' || (i % 40), (i % 976) || 'k', '0' || (i % 5) || '03', i "
                              u"* 0.01, i * 1e-6, i % 5000, "
                              u"'2024-01-31 10:11:12', 'a part of the stock with words ' || (i % "
                              u"1000), i % 64 FROM n");
    }
    ~CStockFile()
    {
        m_Database.Close();
        for (const char* const tail : {"", "-wal", "-shm"})
            std::filesystem::remove(m_Path.string() + tail);
    }

    std::string GetConnect() const
    {
        return "DRIVER={SQLite3};Database=" + m_Path.string() + ";StepAPI=1";
    }
    utility::CDatabase& GetDatabase() { return m_Database; }

    static CStockFile& Get()
    {
        static CStockFile file;
        return file;
    }

private:
    std::filesystem::path m_Path;
    utility::CDatabase m_Database;
};

class CStock : public utility::CRecordset
{
public:
    explicit CStock(utility::CDatabase& database) : CRecordset(&database) { m_nFields = 12; }

    void DoFieldExchange(utility::CFieldExchange* exchange) override
    {
        exchange->SetFieldType(utility::CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[Id]", m_Id);
        for (std::size_t index = 0; index < 5; ++index)
            RFX_Text(exchange, u"[Text]", m_Texts[index], 512);
        RFX_Double(exchange, u"[Price]", m_Price);
        RFX_Double(exchange, u"[Weight]", m_Weight);
        RFX_Long(exchange, u"[Count]", m_Count);
        RFX_Date(exchange, u"[Made]", m_Made);
        RFX_Text(exchange, u"[Words]", m_Texts[5], 512);
        RFX_Long(exchange, u"[Bin]", m_Bin);
    }

    utility::LONG m_Id = 0;
    utility::LONG m_Count = 0;
    utility::LONG m_Bin = 0;
    double m_Price = 0;
    double m_Weight = 0;
    utility::TIMESTAMP_STRUCT m_Made = {};
    std::array<utility::CString, 6> m_Texts;
};

void BM_RowsToTypedFields(benchmark::State& state)
{
    CStock stock(CStockFile::Get().GetDatabase());
    for (auto _ : state)
    {
        std::int64_t sum = 0;
        for (stock.Open(utility::AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Stock]"); !stock.IsEOF();
             stock.MoveNext())
            sum += stock.m_Id + stock.m_Texts[0].GetLength();
        benchmark::DoNotOptimize(sum);
        stock.Close();
    }
    state.SetItemsProcessed(state.iterations() * ROWS);
}

void BM_RowsToDiscoveredFields(benchmark::State& state)
{
    utility::CODBCRecordset stock(&CStockFile::Get().GetDatabase());
    for (auto _ : state)
    {
        std::int64_t sum = 0;
        for (stock.Open(u"SELECT * FROM [Stock]"); !stock.IsEOF(); stock.MoveNext())
            sum += stock.GetInt(0) + stock.GetString(1).GetLength();
        benchmark::DoNotOptimize(sum);
        stock.Close();
    }
    state.SetItemsProcessed(state.iterations() * ROWS);
}

/// A connection of the peers, without the library.
class CBareConnection
{
public:
    CBareConnection()
    {
        const std::string connect = CStockFile::Get().GetConnect();
        SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &m_Environment);
        SQLSetEnvAttr(m_Environment, SQL_ATTR_ODBC_VERSION,
                      reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, m_Environment, &m_Connection);
        SQLDriverConnect(m_Connection, nullptr,
                         reinterpret_cast<SQLCHAR*>(const_cast<char*>(connect.c_str())), SQL_NTS,
                         nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    }
    ~CBareConnection()
    {
        SQLDisconnect(m_Connection);
        SQLFreeHandle(SQL_HANDLE_DBC, m_Connection);
        SQLFreeHandle(SQL_HANDLE_ENV, m_Environment);
    }
    CBareConnection(const CBareConnection&) = delete;
    CBareConnection& operator=(const CBareConnection&) = delete;

    SQLHSTMT Execute(const char* sql) const
    {
        SQLHSTMT statement = nullptr;
        SQLAllocHandle(SQL_HANDLE_STMT, m_Connection, &statement);
        SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(const_cast<char*>(sql)), SQL_NTS);
        return statement;
    }

private:
    SQLHENV m_Environment = nullptr;
    SQLHDBC m_Connection = nullptr;
};

void BM_RowsByHand(benchmark::State& state)
{
    const CBareConnection connection;
    for (auto _ : state)
    {
        SQLHSTMT statement = connection.Execute("SELECT * FROM Stock");
        std::array<SQLBIGINT, 3> numbers{};
        std::array<double, 2> reals{};
        SQL_TIMESTAMP_STRUCT made{};
        std::array<std::array<char, 1537>, 6> texts{};
        std::array<SQLLEN, 12> lengths{};
        const auto bind = [&](int column, SQLSMALLINT carrier, void* place, std::size_t size)
        {
            SQLBindCol(statement, static_cast<SQLUSMALLINT>(column), carrier, place,
                       static_cast<SQLLEN>(size), &lengths[static_cast<std::size_t>(column) - 1]);
        };
        bind(1, SQL_C_SBIGINT, &numbers[0], 8);
        for (int column = 2; column <= 6; ++column)
            bind(column, SQL_C_CHAR, texts[static_cast<std::size_t>(column) - 2].data(), 1537);
        bind(7, SQL_C_DOUBLE, &reals[0], 8);
        bind(8, SQL_C_DOUBLE, &reals[1], 8);
        bind(9, SQL_C_SBIGINT, &numbers[1], 8);
        bind(10, SQL_C_TYPE_TIMESTAMP, &made, sizeof(made));
        bind(11, SQL_C_CHAR, texts[5].data(), 1537);
        bind(12, SQL_C_SBIGINT, &numbers[2], 8);
        std::int64_t sum = 0;
        while (SQLFetch(statement) == SQL_SUCCESS)
            sum += numbers[0] + lengths[1];
        benchmark::DoNotOptimize(sum);
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
    }
    state.SetItemsProcessed(state.iterations() * ROWS);
}

// One row: what is asked of the driver before it comes counts, above all for expressions.
constexpr char SHORT_QUERY[] = "SELECT Id, Name FROM Stock WHERE rowid = 5";
constexpr char SHORT_EXPRESSION[] = "SELECT Id + 1, upper(Name) FROM Stock WHERE rowid = 5";

void BM_ShortQuery(benchmark::State& state, const char* sql)
{
    utility::CODBCRecordset stock(&CStockFile::Get().GetDatabase());
    const utility::CString text = utility::FromUtf8(sql);
    for (auto _ : state)
    {
        stock.Open(text.GetString());
        benchmark::DoNotOptimize(stock.GetInt(0) + stock.GetString(1).GetLength());
        stock.Close();
    }
}

void BM_ShortQueryByHand(benchmark::State& state, const char* sql)
{
    const CBareConnection connection;
    for (auto _ : state)
    {
        SQLHSTMT statement = connection.Execute(sql);
        SQLBIGINT number = 0;
        std::array<char, 1537> text{};
        std::array<SQLLEN, 2> lengths{};
        SQLBindCol(statement, 1, SQL_C_SBIGINT, &number, 8, &lengths[0]);
        SQLBindCol(statement, 2, SQL_C_CHAR, text.data(), 1537, &lengths[1]);
        SQLFetch(statement);
        benchmark::DoNotOptimize(number + lengths[1]);
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
    }
}

void BM_AnyFetchedRow(benchmark::State& state)
{
    CStock stock(CStockFile::Get().GetDatabase());
    stock.Open(utility::AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Stock]");
    stock.MoveLast();
    std::uint32_t place = 1;
    for (auto _ : state)
    {
        place = place * 1664525U + 1013904223U;
        stock.SetAbsolutePosition(static_cast<std::int32_t>(place % ROWS) + 1);
        benchmark::DoNotOptimize(stock.m_Id);
    }
}

BENCHMARK(BM_RowsToTypedFields)
    ->Name("100000 rows to fields/ours, declared")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RowsToDiscoveredFields)
    ->Name("100000 rows to fields/ours, discovered")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RowsByHand)->Name("100000 rows to fields/bound loop")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_ShortQuery, columns, SHORT_QUERY)->Name("one row of columns/ours");
BENCHMARK_CAPTURE(BM_ShortQueryByHand, columns, SHORT_QUERY)->Name("one row of columns/bound loop");
BENCHMARK_CAPTURE(BM_ShortQuery, expressions, SHORT_EXPRESSION)
    ->Name("one row of expressions/ours");
BENCHMARK_CAPTURE(BM_ShortQueryByHand, expressions, SHORT_EXPRESSION)
    ->Name("one row of expressions/bound loop");
BENCHMARK(BM_AnyFetchedRow);

} // namespace
