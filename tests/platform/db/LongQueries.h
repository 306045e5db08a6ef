#pragma once

#include "support/DatabaseServers.h"

namespace utility
{

/// A query that nobody would wait for.
inline LPCWSTR LongQuery(EServer server)
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

/// A write into [Kept] ([i] INTEGER) that waits before its last row.
inline LPCWSTR LongWrite(EServer server)
{
    return server == EServer::PostgreSQL
               ? u"INSERT INTO [Kept] SELECT g FROM generate_series(1, 1000) AS g WHERE g < 1000 "
                 u"OR pg_sleep(60) IS NOT NULL"
               : u"INSERT INTO [Kept] SELECT seq FROM seq_1_to_1000 WHERE seq < 1000 OR SLEEP(60) "
                 u"= 0";
}

/// How many of either its server says it works on.
inline LPCWSTR CountLongQueries(EServer server)
{
    return server == EServer::PostgreSQL
               ? u"SELECT COUNT(*) FROM pg_stat_activity WHERE wait_event = 'PgSleep'"
               : u"SELECT COUNT(*) FROM information_schema.processlist WHERE state = 'User sleep'";
}

/// More rows than one row set holds, without a table.
inline LPCWSTR ManyRows(EServer server)
{
    return server == EServer::PostgreSQL
               ? u"SELECT g, repeat('x', 500) FROM generate_series(1, 200000) AS g"
               : u"SELECT seq, REPEAT('x', 500) FROM seq_1_to_200000";
}

} // namespace utility
