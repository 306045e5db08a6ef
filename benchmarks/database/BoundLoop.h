#pragma once

#include "Peer.h"

#include <string>

/// SQLFetch into bound columns and SQLExecute with bound parameters, as one writes them by hand.
///
/// It takes as many rows at a time as the library does of the same server, with the same settings
/// of the driver.
class CBoundLoop : public IPeer
{
public:
    explicit CBoundLoop(const CStockTable& table);
    ~CBoundLoop() override;
    CBoundLoop(const CBoundLoop&) = delete;
    CBoundLoop& operator=(const CBoundLoop&) = delete;

    const char* GetName() const override { return "bound loop"; }
    CTotal ReadRows(int most) override;

    /// Adds rows in one transaction, which is rolled back.
    CTotal AddRows(int count);

private:
    struct CRowSet;
    void* Execute(CRowSet& rows);
    void Require(short code, short kind, void* handle) const;

    std::size_t m_RowSetSize;
    void* m_Environment = nullptr;
    void* m_Connection = nullptr;
};

/// The connect string with what the library adds to it by itself.
std::string CompleteConnect(const CStockTable& table);
