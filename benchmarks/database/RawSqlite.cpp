#include "RawClients.h"

#include <sqlite3.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace
{

class CRawSqlite : public IPeer
{
public:
    explicit CRawSqlite(const CStockTable& table)
    {
        if (sqlite3_open(table.GetKey(u"Database").c_str(), &m_Database) != SQLITE_OK)
            throw std::runtime_error("sqlite3: the file does not open");
    }
    ~CRawSqlite() override { sqlite3_close(m_Database); }
    CRawSqlite(const CRawSqlite&) = delete;
    CRawSqlite& operator=(const CRawSqlite&) = delete;

    const char* GetName() const override { return "sqlite3"; }

    CTotal ReadRows(int most) override
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_Database, CStockTable::SELECT, -1, &statement, nullptr) !=
            SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(m_Database));
        CTotal total;
        while (total.Rows < most && sqlite3_step(statement) == SQLITE_ROW)
            AddRow(statement, total);
        sqlite3_finalize(statement);
        return total;
    }

private:
    static void AddRow(sqlite3_stmt* row, CTotal& total)
    {
        ++total.Rows;
        for (const int column : {0, 8, 11})
            total.Numbers += sqlite3_column_int64(row, column);
        for (const int column : {1, 2, 3, 4, 5, 10})
        {
            sqlite3_column_text(row, column);
            total.TextUnits += sqlite3_column_bytes(row, column);
        }
        total.Reals += sqlite3_column_double(row, 6) + sqlite3_column_double(row, 7);
        total.Years += std::atoi(reinterpret_cast<const char*>(sqlite3_column_text(row, 9)));
    }

    sqlite3* m_Database = nullptr;
};

} // namespace

std::unique_ptr<IPeer> ConnectRawSqlite(const CStockTable& table)
{
    return std::make_unique<CRawSqlite>(table);
}
