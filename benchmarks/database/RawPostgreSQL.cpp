#include "RawClients.h"

#include <cstdlib>
#include <libpq-fe.h>
#include <stdexcept>

namespace
{

/// By a cursor, 1000 rows a message, as the library has the driver do it.
class CRawPostgreSQL : public IPeer
{
public:
    explicit CRawPostgreSQL(const CStockTable& table)
        : m_Connection(PQconnectdb(("host=" + table.GetKey(u"Servername") +
                                    " dbname=" + table.GetKey(u"DATABASE") +
                                    " user=" + table.GetKey(u"Username"))
                                       .c_str()))
    {
        if (PQstatus(m_Connection) != CONNECTION_OK)
            throw std::runtime_error(PQerrorMessage(m_Connection));
    }
    ~CRawPostgreSQL() override { PQfinish(m_Connection); }
    CRawPostgreSQL(const CRawPostgreSQL&) = delete;
    CRawPostgreSQL& operator=(const CRawPostgreSQL&) = delete;

    const char* GetName() const override { return "libpq"; }

    CTotal ReadRows(int most) override
    {
        PQclear(Execute("BEGIN"));
        PQclear(Execute(("DECLARE c CURSOR FOR " + std::string(CStockTable::SELECT)).c_str()));
        CTotal total;
        for (bool isMore = true; isMore;)
        {
            PGresult* const rows = Execute("FETCH 1000 FROM c");
            const int count = PQntuples(rows);
            for (int row = 0; row < count && total.Rows < most; ++row)
                AddRow(rows, row, total);
            PQclear(rows);
            isMore = count > 0 && total.Rows < most;
        }
        PQclear(Execute("COMMIT"));
        return total;
    }

private:
    PGresult* Execute(const char* sql)
    {
        PGresult* const result = PQexec(m_Connection, sql);
        const ExecStatusType status = PQresultStatus(result);
        if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
            throw std::runtime_error(PQerrorMessage(m_Connection));
        return result;
    }

    static void AddRow(const PGresult* rows, int row, CTotal& total)
    {
        ++total.Rows;
        for (const int column : {0, 8, 11})
            total.Numbers += std::strtoll(PQgetvalue(rows, row, column), nullptr, 10);
        for (const int column : {1, 2, 3, 4, 5, 10})
            total.TextUnits += PQgetlength(rows, row, column);
        for (const int column : {6, 7})
            total.Reals += std::strtod(PQgetvalue(rows, row, column), nullptr);
        total.Years += std::atoi(PQgetvalue(rows, row, 9));
    }

    PGconn* m_Connection;
};

} // namespace

std::unique_ptr<IPeer> ConnectRawPostgreSQL(const CStockTable& table)
{
    return std::make_unique<CRawPostgreSQL>(table);
}
