#pragma once

#include "Peer.h"

std::unique_ptr<IPeer> ConnectRawSqlite(const CStockTable& table);
std::unique_ptr<IPeer> ConnectRawPostgreSQL(const CStockTable& table);
std::unique_ptr<IPeer> ConnectRawMariaDB(const CStockTable& table);
