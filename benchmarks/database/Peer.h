#pragma once

#include "StockTable.h"

#include <memory>

/// Somebody else's way to the rows of a stock table, connected as long as it lives; each column of
/// a row is read into a value of its own type. Failures raise std::runtime_error.
class IPeer
{
public:
    virtual ~IPeer() = default;

    virtual const char* GetName() const = 0;

    /// Runs the query, reads at most `most` rows and drops the rest.
    virtual CTotal ReadRows(int most) = 0;
};

/// The client library of the server itself: sqlite3, libpq or MariaDB's.
std::unique_ptr<IPeer> ConnectRawClient(const CStockTable& table);

/// SOCI, with the server's own backend and variables bound once.
std::unique_ptr<IPeer> ConnectSoci(const CStockTable& table);

/// Qt's QODBC, forward only.
std::unique_ptr<IPeer> ConnectQt(const CStockTable& table);
