#include "RawClients.h"

using utility::EServer;

std::unique_ptr<IPeer> ConnectRawClient(const CStockTable& table)
{
    switch (table.GetServer())
    {
    case EServer::SQLite:
        return ConnectRawSqlite(table);
    case EServer::PostgreSQL:
        return ConnectRawPostgreSQL(table);
    case EServer::MariaDB:
        return ConnectRawMariaDB(table);
    }
    return nullptr;
}
