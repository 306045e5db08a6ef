#include "StockTable.h"

#include "platform/base/Encoding.h"
#include "platform/db/ConnectString.h"

using namespace utility;

namespace
{

// Each server writes a row of numbers in its own way; the values are the same.
constexpr LPCWSTR VALUES =
    u"SELECT i, 'RES-' || i || '-0603', CASE i % 3 WHEN 0 THEN 'Resistor' WHEN 1 THEN 'Capacitor' "
    u"ELSE 'Inductor' END, 'Maker ' || (i % 40), (i % 976) || CASE i % 4 WHEN 0 THEN 'k' WHEN 1 "
    u"THEN 'R' WHEN 2 THEN 'k5' ELSE 'M' END, '0' || (i % 5) || '03', i * 0.25, (i % 1000) * 0.5, "
    u"i % 5000, '2024-01-31 10:11:12', 'a part of the stock with words ' || (i % 1000), i % 64 "
    u"FROM ";

CString MakeRows(EServer server, int rows)
{
    CString sql(u"INSERT INTO Stock ");
    if (server == EServer::SQLite)
        sql.AppendFormat(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i "
                         u"< %d) ",
                         rows);
    sql += VALUES;
    switch (server)
    {
    case EServer::SQLite:
        sql += u"n";
        break;
    case EServer::PostgreSQL:
        sql.AppendFormat(u"generate_series(1, %d) AS n(i)", rows);
        break;
    case EServer::MariaDB:
        sql.AppendFormat(u"(SELECT seq AS i FROM seq_1_to_%d) AS n", rows);
        break;
    }
    return sql;
}

} // namespace

CStockTable::CStockTable(EServer server, int rows)
    : m_Server(server),
      m_Rows(rows),
      m_Connect(CDatabaseServers::Get().MakeSource(server))
{
    m_Database.SetQueryTimeout(0); // a million rows take a while
    m_Database.Open(nullptr, FALSE, FALSE, m_Connect);
    if (server == EServer::MariaDB)
        m_Database.ExecuteSQL(u"SET sql_mode = 'ANSI'");
    m_Database.ExecuteSQL(
        u"CREATE TABLE Stock (Id INTEGER, Name VARCHAR(60), Kind VARCHAR(20), Maker VARCHAR(40), "
        u"Value VARCHAR(20), Box VARCHAR(10), Price DOUBLE PRECISION, Weight DOUBLE PRECISION, "
        u"Count INTEGER, Made TIMESTAMP, Words VARCHAR(200), Bin INTEGER)");
    m_Database.ExecuteSQL(u"CREATE TABLE Added (Id INTEGER, Name VARCHAR(60), Price DOUBLE "
                          u"PRECISION, Words VARCHAR(200))");
    m_Database.ExecuteSQL(MakeRows(server, rows));
    if (server == EServer::PostgreSQL)
        m_Database.ExecuteSQL(u"VACUUM ANALYZE Stock");
}

std::string CStockTable::GetKey(std::u16string_view key) const
{
    return ToUtf8(CConnectString(m_Connect.View()).Get(key).View());
}
