#pragma once

#include "platform/backend/sqlite/HiveConnection.h"

#include <span>

namespace utility
{

/// The statements of a connection, each prepared at its first use.
enum class EHiveStatement
{
    Begin,
    Commit,
    RollBack,
    DataVersion,
    FindKey,
    FindValue,
    InsertKey,
    UpsertValue,
    FindValueRow,
    DeleteValue,
    HasSubKeys,
    DeleteKey,
    NextKey,
    LastKey,
    NextValue,
    LastValue,
    Count
};

/// One run of a statement; binds in order, is reset at its end.
class CHiveStatement
{
public:
    CHiveStatement(CHiveConnection& connection, EHiveStatement which);
    ~CHiveStatement();
    CHiveStatement(const CHiveStatement&) = delete;
    CHiveStatement& operator=(const CHiveStatement&) = delete;

    /// The text must live until the run's end.
    CHiveStatement& Bind(std::string_view text);
    CHiveStatement& Bind(std::int64_t number);
    CHiveStatement& Bind(DWORD type, std::span<const BYTE> data);

    /// True for a row; false at the end or for a failure, which `GetCode` tells.
    bool Step();
    /// Steps once; the code.
    LONG Run();
    LONG GetCode() const { return m_Code; }

    std::int64_t Number(int column) const;
    std::string Text(int column) const;
    CHiveValue Value(int typeColumn, int dataColumn) const;

private:
    CHiveConnection& m_Connection;
    sqlite3_stmt* m_Statement;
    int m_Place = 0;
    LONG m_Code = 0;
};

} // namespace utility
