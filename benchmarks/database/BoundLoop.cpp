#include "BoundLoop.h"

#include "platform/base/Encoding.h"

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <stdexcept>
#include <vector>

using utility::EServer;

namespace
{

constexpr std::size_t TEXT_SIZE = 512;
constexpr std::size_t ROWS_AT_A_TIME = 100;

SQLPOINTER AsAttribute(SQLULEN value)
{
    return reinterpret_cast<SQLPOINTER>(value);
}

SQLCHAR* AsText(const std::string& text)
{
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

using CText = std::array<char, TEXT_SIZE>;

} // namespace

std::string CompleteConnect(const CStockTable& table)
{
    const std::string connect = utility::ToUtf8(table.GetConnect().View());
    switch (table.GetServer())
    {
    case EServer::SQLite:
        return connect + ";StepAPI=1;Timeout=5000";
    case EServer::PostgreSQL:
        return connect + ";UseDeclareFetch=1;Fetch=1000";
    case EServer::MariaDB:
        return connect + ";CHARSET=utf8mb4";
    }
    return connect;
}

/// A row set's values, by column.
struct CBoundLoop::CRowSet
{
    explicit CRowSet(std::size_t rows)
        : Numbers(3, std::vector<SQLBIGINT>(rows)),
          Reals(2, std::vector<double>(rows)),
          Texts(6, std::vector<CText>(rows)),
          Made(rows),
          Lengths(CStockTable::COLUMNS, std::vector<SQLLEN>(rows))
    {
    }

    void Bind(SQLHSTMT statement)
    {
        SQLUSMALLINT column = 0;
        const auto bind = [&](SQLSMALLINT carrier, void* place, std::size_t size)
        {
            std::vector<SQLLEN>& lengths = Lengths[column++];
            SQLBindCol(statement, column, carrier, place, static_cast<SQLLEN>(size),
                       lengths.data());
        };
        bind(SQL_C_SBIGINT, Numbers[0].data(), sizeof(SQLBIGINT));
        for (std::size_t text = 0; text < 5; ++text)
            bind(SQL_C_CHAR, Texts[text].data(), TEXT_SIZE);
        bind(SQL_C_DOUBLE, Reals[0].data(), sizeof(double));
        bind(SQL_C_DOUBLE, Reals[1].data(), sizeof(double));
        bind(SQL_C_SBIGINT, Numbers[1].data(), sizeof(SQLBIGINT));
        bind(SQL_C_TYPE_TIMESTAMP, Made.data(), sizeof(SQL_TIMESTAMP_STRUCT));
        bind(SQL_C_CHAR, Texts[5].data(), TEXT_SIZE);
        bind(SQL_C_SBIGINT, Numbers[2].data(), sizeof(SQLBIGINT));
    }

    void AddTo(CTotal& total, std::size_t row) const
    {
        constexpr std::size_t TEXT_COLUMNS[] = {1, 2, 3, 4, 5, 10};
        ++total.Rows;
        for (const std::vector<SQLBIGINT>& numbers : Numbers)
            total.Numbers += numbers[row];
        for (const std::size_t column : TEXT_COLUMNS)
            total.TextUnits += Lengths[column][row];
        total.Reals += Reals[0][row] + Reals[1][row];
        total.Years += Made[row].year;
    }

    std::vector<std::vector<SQLBIGINT>> Numbers;
    std::vector<std::vector<double>> Reals;
    std::vector<std::vector<CText>> Texts;
    std::vector<SQL_TIMESTAMP_STRUCT> Made;
    std::vector<std::vector<SQLLEN>> Lengths;
    SQLULEN Fetched = 0;
};

CBoundLoop::CBoundLoop(const CStockTable& table)
    : m_RowSetSize(table.GetServer() == EServer::SQLite ? 1 : ROWS_AT_A_TIME)
{
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &m_Environment);
    SQLSetEnvAttr(m_Environment, SQL_ATTR_ODBC_VERSION, AsAttribute(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, m_Environment, &m_Connection);
    const std::string connect = CompleteConnect(table);
    Require(SQLDriverConnect(m_Connection, nullptr, AsText(connect), SQL_NTS, nullptr, 0, nullptr,
                             SQL_DRIVER_NOPROMPT),
            SQL_HANDLE_DBC, m_Connection);
}

CBoundLoop::~CBoundLoop()
{
    SQLDisconnect(m_Connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_Connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_Environment);
}

void CBoundLoop::Require(short code, short kind, void* handle) const
{
    if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA)
        return;
    std::array<SQLCHAR, 6> state{};
    std::array<SQLCHAR, 512> message{};
    SQLGetDiagRec(kind, handle, 1, state.data(), nullptr, message.data(),
                  static_cast<SQLSMALLINT>(message.size()), nullptr);
    throw std::runtime_error(std::string("bound loop: ") +
                             reinterpret_cast<const char*>(message.data()));
}

void* CBoundLoop::Execute(CRowSet& rows)
{
    SQLHSTMT statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, m_Connection, &statement);
    Require(SQLExecDirect(statement, AsText(CStockTable::SELECT), SQL_NTS), SQL_HANDLE_STMT,
            statement);
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, AsAttribute(m_RowSetSize), 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, &rows.Fetched, 0);
    rows.Bind(statement);
    return statement;
}

CTotal CBoundLoop::ReadRows(int most)
{
    CRowSet rows(m_RowSetSize);
    SQLHSTMT statement = Execute(rows);
    CTotal total;
    rows.Fetched = 1; // a driver that fetches one at a time need not tell
    while (total.Rows < most)
    {
        const SQLRETURN code = SQLFetch(statement);
        Require(code, SQL_HANDLE_STMT, statement);
        if (code == SQL_NO_DATA)
            break;
        for (std::size_t row = 0; row < rows.Fetched && total.Rows < most; ++row)
            rows.AddTo(total, row);
    }
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return total;
}

CTotal CBoundLoop::AddRows(int count)
{
    SQLSetConnectAttr(m_Connection, SQL_ATTR_AUTOCOMMIT, AsAttribute(SQL_AUTOCOMMIT_OFF), 0);
    SQLHSTMT statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, m_Connection, &statement);
    Require(SQLPrepare(statement, AsText(CStockTable::ADD), SQL_NTS), SQL_HANDLE_STMT, statement);
    SQLBIGINT number = 0;
    double real = 0;
    CText name{};
    CText words{};
    std::array<SQLLEN, 4> lengths{};
    const auto bind =
        [&](SQLUSMALLINT mark, SQLSMALLINT carrier, SQLSMALLINT type, std::size_t size, void* place)
    {
        SQLBindParameter(statement, mark, SQL_PARAM_INPUT, carrier, type, size, 0, place,
                         static_cast<SQLLEN>(size), &lengths[mark - 1U]);
    };
    CTotal total;
    for (; total.Rows < count; ++total.Rows)
    {
        number = total.Rows;
        real = static_cast<double>(number) * 0.5;
        const std::string text = "RES-" + std::to_string(number);
        lengths = {0, static_cast<SQLLEN>(text.copy(name.data(), TEXT_SIZE)), 0,
                   static_cast<SQLLEN>(CStockTable::ADDED_WORDS.copy(words.data(), TEXT_SIZE))};
        // Each time anew: the SQLite driver keeps the length it found first.
        bind(1, SQL_C_SBIGINT, SQL_BIGINT, 0, &number);
        bind(2, SQL_C_CHAR, SQL_VARCHAR, TEXT_SIZE, name.data());
        bind(3, SQL_C_DOUBLE, SQL_DOUBLE, 0, &real);
        bind(4, SQL_C_CHAR, SQL_VARCHAR, TEXT_SIZE, words.data());
        Require(SQLExecute(statement), SQL_HANDLE_STMT, statement);
    }
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    SQLEndTran(SQL_HANDLE_DBC, m_Connection, SQL_ROLLBACK);
    SQLSetConnectAttr(m_Connection, SQL_ATTR_AUTOCOMMIT, AsAttribute(SQL_AUTOCOMMIT_ON), 0);
    return total;
}
