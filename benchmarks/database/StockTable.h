#pragma once

#include "platform/db/Database.h"

#include "support/DatabaseServers.h"

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

/// A table of parts in a new database of one server: twelve columns of all kinds.
///
/// The table's rows are made by its server, so that making them costs no part of what is measured.
class CStockTable
{
public:
    CStockTable(utility::EServer server, int rows);

    utility::EServer GetServer() const { return m_Server; }
    int GetRowCount() const { return m_Rows; }
    utility::CDatabase& GetDatabase() { return m_Database; }

    /// What a peer connects with; without the settings that the library adds by itself.
    const utility::CString& GetConnect() const { return m_Connect; }
    std::string GetKey(std::u16string_view key) const;

    static constexpr int COLUMNS = 12;
    static constexpr const char* SELECT = "SELECT * FROM Stock";

    // What is written: number, "RES-" and the number, half the number, these words
    static constexpr const char* SELECT_NONE = "SELECT * FROM Added WHERE 1 = 0";
    static constexpr const char* ADD =
        "INSERT INTO Added (Id, Name, Price, Words) VALUES (?,?,?,?)";
    static constexpr std::string_view ADDED_WORDS = "a part that was not in the stock before";

private:
    utility::EServer m_Server;
    int m_Rows;
    utility::CString m_Connect;
    utility::CDatabase m_Database;
};

/// What was read or written on the way: the same for everybody who did the same.
struct CTotal
{
    std::int64_t Rows = 0;
    std::int64_t Numbers = 0;   // the sum of the three whole numbers
    std::int64_t TextUnits = 0; // of the six texts together
    double Reals = 0;           // the sum of the two reals
    std::int64_t Years = 0;     // of the dates

    bool operator==(const CTotal&) const = default;
};

constexpr int ALL_ROWS = std::numeric_limits<int>::max();
constexpr int SCREEN_ROWS = 50;
