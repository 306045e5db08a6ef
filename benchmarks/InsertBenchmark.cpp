#include "database/DBADatabase.h"
#include "database/transfer/TableReader.h"
#include "database/transfer/TableWriter.h"
#include "platform/base/Encoding.h"
#include "platform/db/FieldExchange.h"
#include "platform/db/Recordset.h"

#include <benchmark/benchmark.h>
#include <sql.h>
#include <sqlext.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <unistd.h>

// Rows of eight columns into SQLite inside one transaction: by AddNew and Update of a recordset,
// and by the writer that copies tables, beside a bound SQLExecute loop written by hand.

namespace
{

constexpr std::size_t TEXTS = 4;
// The driver reads the statement anew at each execution, so its length counts.
constexpr char INSERT[] =
    "INSERT INTO \"Stock\" (\"Id\", \"Name\", \"Kind\", \"Maker\", \"Value\", "
    "\"Price\", \"Weight\", \"Count\") VALUES (?, ?, ?, ?, ?, ?, ?, ?)";
constexpr char TEXT_FORM[] = "part %d of the stock";

/// An empty stock of parts in a file of its own, gone with this object.
class CEmptyStock
{
public:
    CEmptyStock()
        : m_Path(std::filesystem::temp_directory_path() /
                 ("utility-insert-" + std::to_string(getpid()) + ".db"))
    {
        m_Database.Open(nullptr, 0, 0, utility::FromUtf8(GetConnect()));
        m_Database.ExecuteSQL(
            u"CREATE TABLE [Stock] ([Id] INTEGER, [Name] VARCHAR(60), [Kind] VARCHAR(60), [Maker] "
            u"VARCHAR(60), [Value] VARCHAR(60), [Price] DOUBLE, [Weight] DOUBLE, [Count] INTEGER)");
    }
    ~CEmptyStock()
    {
        m_Database.Close();
        for (const char* const tail : {"", "-journal", "-wal", "-shm"})
            std::filesystem::remove(m_Path.string() + tail);
    }

    std::string GetConnect() const
    {
        return "DRIVER={SQLite3};Database=" + m_Path.string() + ";StepAPI=1";
    }
    utility::CDBADatabase& GetDatabase() { return m_Database; }

private:
    std::filesystem::path m_Path;
    utility::CDBADatabase m_Database;
};

class CStock : public utility::CRecordset
{
public:
    explicit CStock(utility::CDatabase& database) : CRecordset(&database) { m_nFields = 8; }

    void DoFieldExchange(utility::CFieldExchange* exchange) override
    {
        constexpr const char16_t* NAMES[TEXTS] = {u"[Name]", u"[Kind]", u"[Maker]", u"[Value]"};
        exchange->SetFieldType(utility::CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[Id]", m_Id);
        for (std::size_t index = 0; index < TEXTS; ++index)
            RFX_Text(exchange, NAMES[index], m_Texts[index], 512);
        RFX_Double(exchange, u"[Price]", m_Price);
        RFX_Double(exchange, u"[Weight]", m_Weight);
        RFX_Long(exchange, u"[Count]", m_Count);
    }

    utility::LONG m_Id = 0;
    utility::LONG m_Count = 0;
    double m_Price = 0;
    double m_Weight = 0;
    std::array<utility::CString, TEXTS> m_Texts;
};

void BM_ByRecordset(benchmark::State& state)
{
    CEmptyStock file;
    CStock stock(file.GetDatabase());
    stock.Open(utility::AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Stock] WHERE 0");
    file.GetDatabase().BeginTrans();
    utility::LONG number = 0;
    for (auto _ : state)
    {
        stock.AddNew();
        stock.m_Id = ++number;
        for (utility::CString& text : stock.m_Texts)
            text.Format(u"part %d of the stock", number);
        stock.m_Price = number * 0.5;
        stock.m_Weight = number * 1e-6;
        stock.m_Count = number;
        stock.Update();
    }
    file.GetDatabase().Rollback();
    state.SetItemsProcessed(state.iterations());
}

void BM_ByWriter(benchmark::State& state)
{
    CEmptyStock file;
    const auto columns = utility::CTableReader(file.GetDatabase(), u"Stock").GetColumns();
    utility::CTableWriter writer(file.GetDatabase(), u"Stock", columns);
    file.GetDatabase().BeginTrans();
    int number = 0;
    std::array<utility::CDbValue, 8> values;
    for (utility::CDbValue& value : values)
        value.IsNull = false;
    values[0].Kind = values[7].Kind = utility::EValueKind::Integer;
    values[5].Kind = values[6].Kind = utility::EValueKind::Real;
    std::array<char, 64> text{};
    for (auto _ : state)
    {
        values[0].Integer = values[7].Integer = ++number;
        for (std::size_t index = 1; index <= TEXTS; ++index)
        {
            const int length = std::snprintf(text.data(), text.size(), TEXT_FORM, number);
            values[index].Kind = utility::EValueKind::Text;
            values[index].Bytes = {text.data(), static_cast<std::size_t>(length)};
        }
        values[5].Real = number * 0.5;
        values[6].Real = number * 1e-6;
        writer.Write(values);
    }
    file.GetDatabase().Rollback();
    state.SetItemsProcessed(state.iterations());
}

/// A connection and a prepared INSERT of the peer, without the library.
class CBareInsert
{
public:
    explicit CBareInsert(const std::string& connect)
    {
        SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &m_Environment);
        SQLSetEnvAttr(m_Environment, SQL_ATTR_ODBC_VERSION,
                      reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, m_Environment, &m_Connection);
        SQLDriverConnect(m_Connection, nullptr, Narrow(connect.c_str()), SQL_NTS, nullptr, 0,
                         nullptr, SQL_DRIVER_NOPROMPT);
        SQLSetConnectAttr(m_Connection, SQL_ATTR_AUTOCOMMIT,
                          reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0);
        SQLAllocHandle(SQL_HANDLE_STMT, m_Connection, &m_Statement);
        SQLPrepare(m_Statement, Narrow(INSERT), SQL_NTS);
    }
    ~CBareInsert()
    {
        SQLFreeHandle(SQL_HANDLE_STMT, m_Statement);
        SQLEndTran(SQL_HANDLE_DBC, m_Connection, SQL_ROLLBACK);
        SQLDisconnect(m_Connection);
        SQLFreeHandle(SQL_HANDLE_DBC, m_Connection);
        SQLFreeHandle(SQL_HANDLE_ENV, m_Environment);
    }
    CBareInsert(const CBareInsert&) = delete;
    CBareInsert& operator=(const CBareInsert&) = delete;

    void Bind(SQLUSMALLINT mark, SQLSMALLINT carrier, SQLSMALLINT type, void* place,
              std::size_t size, SQLLEN* length)
    {
        SQLBindParameter(m_Statement, mark, SQL_PARAM_INPUT, carrier, type, size, 0, place,
                         static_cast<SQLLEN>(size), length);
    }
    bool Execute() { return SQL_SUCCEEDED(SQLExecute(m_Statement)); }

private:
    static SQLCHAR* Narrow(const char* text)
    {
        return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text));
    }

    SQLHENV m_Environment = nullptr;
    SQLHDBC m_Connection = nullptr;
    SQLHSTMT m_Statement = nullptr;
};

void BM_ByHand(benchmark::State& state)
{
    CEmptyStock file;
    CBareInsert insert(file.GetConnect());
    std::array<SQLBIGINT, 2> numbers{};
    std::array<double, 2> reals{};
    std::array<std::array<char, 64>, TEXTS> texts{};
    std::array<SQLLEN, 8> lengths{};
    int number = 0;
    for (auto _ : state)
    {
        numbers[0] = numbers[1] = ++number;
        reals[0] = number * 0.5;
        reals[1] = number * 1e-6;
        insert.Bind(1, SQL_C_SBIGINT, SQL_INTEGER, &numbers[0], 8, &lengths[0]);
        for (std::size_t index = 0; index < TEXTS; ++index)
        {
            // Bound anew: the driver keeps the length of a binding's first execution.
            lengths[index + 1] =
                std::snprintf(texts[index].data(), texts[index].size(), TEXT_FORM, number);
            insert.Bind(static_cast<SQLUSMALLINT>(index + 2), SQL_C_CHAR, SQL_VARCHAR,
                        texts[index].data(), texts[index].size(), &lengths[index + 1]);
        }
        insert.Bind(6, SQL_C_DOUBLE, SQL_DOUBLE, &reals[0], 8, &lengths[5]);
        insert.Bind(7, SQL_C_DOUBLE, SQL_DOUBLE, &reals[1], 8, &lengths[6]);
        insert.Bind(8, SQL_C_SBIGINT, SQL_INTEGER, &numbers[1], 8, &lengths[7]);
        if (!insert.Execute())
            state.SkipWithError("a row was refused");
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(BM_ByRecordset)->Name("one row inserted/ours, recordset");
BENCHMARK(BM_ByWriter)->Name("one row inserted/ours, table writer");
BENCHMARK(BM_ByHand)->Name("one row inserted/bound loop");

} // namespace
