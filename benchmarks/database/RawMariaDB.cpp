#include "RawClients.h"

#include <cstdlib>
#include <mysql.h>
#include <stdexcept>

namespace
{

/// Row by row as they come: the server's own client need not keep the whole result.
class CRawMariaDB : public IPeer
{
public:
    explicit CRawMariaDB(const CStockTable& table) : m_Connection(mysql_init(nullptr))
    {
        mysql_options(m_Connection, MYSQL_SET_CHARSET_NAME, "utf8mb4");
        if (!mysql_real_connect(m_Connection, nullptr, "root", nullptr,
                                table.GetKey(u"DATABASE").c_str(), 0,
                                table.GetKey(u"SOCKET").c_str(), 0))
            throw std::runtime_error(mysql_error(m_Connection));
    }
    ~CRawMariaDB() override { mysql_close(m_Connection); }
    CRawMariaDB(const CRawMariaDB&) = delete;
    CRawMariaDB& operator=(const CRawMariaDB&) = delete;

    const char* GetName() const override { return "libmariadb"; }

    CTotal ReadRows(int most) override
    {
        if (mysql_query(m_Connection, CStockTable::SELECT) != 0)
            throw std::runtime_error(mysql_error(m_Connection));
        MYSQL_RES* const rows = mysql_use_result(m_Connection);
        CTotal total;
        while (total.Rows < most)
        {
            MYSQL_ROW const row = mysql_fetch_row(rows);
            if (!row)
                break;
            AddRow(row, mysql_fetch_lengths(rows), total);
        }
        mysql_free_result(rows); // reads the rest past
        return total;
    }

private:
    static void AddRow(const MYSQL_ROW row, const unsigned long* lengths, CTotal& total)
    {
        ++total.Rows;
        for (const int column : {0, 8, 11})
            total.Numbers += std::strtoll(row[column], nullptr, 10);
        for (const int column : {1, 2, 3, 4, 5, 10})
            total.TextUnits += static_cast<std::int64_t>(lengths[column]);
        for (const int column : {6, 7})
            total.Reals += std::strtod(row[column], nullptr);
        total.Years += std::atoi(row[9]);
    }

    MYSQL* m_Connection;
};

} // namespace

std::unique_ptr<IPeer> ConnectRawMariaDB(const CStockTable& table)
{
    return std::make_unique<CRawMariaDB>(table);
}
