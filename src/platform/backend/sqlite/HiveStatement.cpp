#include "platform/backend/sqlite/HiveStatement.h"

#include "platform/base/ErrorCodes.h"
#include "platform/system/RegistryHive.h"

#include <sqlite3.h>

#include <atomic>

namespace utility
{

namespace
{

constexpr std::array<const char*, static_cast<std::size_t>(EHiveStatement::Count)> SQL = {
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
    "PRAGMA data_version",
    "SELECT id FROM keys WHERE path = ?",
    "SELECT v.type, v.data FROM keys k JOIN key_values v ON v.key = k.id"
    " WHERE k.path = ? AND v.folded = ?",
    "INSERT INTO keys (parent, path, name, class) SELECT id, ?2, ?3, ?4 FROM keys WHERE path = ?1",
    "INSERT INTO key_values (key, folded, name, type, data)"
    " SELECT id, ?2, ?3, ?4, ?5 FROM keys WHERE path = ?1"
    " ON CONFLICT (key, folded) DO UPDATE SET type = excluded.type, data = excluded.data",
    "SELECT v.id FROM keys k JOIN key_values v ON v.key = k.id WHERE k.path = ? AND v.folded = ?",
    "DELETE FROM key_values WHERE id = ?",
    "SELECT 1 FROM keys WHERE parent = (SELECT id FROM keys WHERE path = ?) LIMIT 1",
    "DELETE FROM keys WHERE path = ?",
    "SELECT path, name, class FROM keys WHERE parent = (SELECT id FROM keys WHERE path = ?)"
    " AND path > ? ORDER BY path LIMIT 1 OFFSET ?",
    "SELECT path, name, class FROM keys WHERE parent = (SELECT id FROM keys WHERE path = ?)"
    " AND path <= ? ORDER BY path DESC LIMIT 1 OFFSET ?",
    "SELECT id, name, type, data FROM key_values WHERE key = (SELECT id FROM keys WHERE path = ?)"
    " AND id > ? ORDER BY id LIMIT 1 OFFSET ?",
    "SELECT id, name, type, data FROM key_values WHERE key = (SELECT id FROM keys WHERE path = ?)"
    " AND id <= ? ORDER BY id DESC LIMIT 1 OFFSET ?",
};

struct CCostCounters
{
    std::atomic<std::uint64_t> m_Statements = 0;
    std::atomic<std::uint64_t> m_Steps = 0;
};
constinit CCostCounters Cost;

} // namespace

CRegistryCost GetRegistryCost()
{
    return {Cost.m_Statements.load(), Cost.m_Steps.load()};
}

CHiveStatement::CHiveStatement(CHiveConnection& connection, EHiveStatement which)
    : m_Connection(connection)
{
    const auto number = static_cast<std::size_t>(which);
    sqlite3_stmt*& slot = connection.m_Statements[number];
    if (!slot)
        m_Code = connection.Note(sqlite3_prepare_v3(connection.m_Database, SQL[number], -1,
                                                    SQLITE_PREPARE_PERSISTENT, &slot, nullptr));
    m_Statement = slot;
}

CHiveStatement::~CHiveStatement()
{
    if (!m_Statement)
        return;
    Cost.m_Statements.fetch_add(1, std::memory_order_relaxed);
    const int steps = sqlite3_stmt_status(m_Statement, SQLITE_STMTSTATUS_VM_STEP, 1);
    Cost.m_Steps.fetch_add(static_cast<std::uint64_t>(steps), std::memory_order_relaxed);
    sqlite3_reset(m_Statement);
}

CHiveStatement& CHiveStatement::Bind(std::string_view text)
{
    // A null pointer would bind NULL, which equals nothing.
    sqlite3_bind_text64(m_Statement, ++m_Place, text.data() ? text.data() : "", text.size(),
                        SQLITE_STATIC, SQLITE_UTF8);
    return *this;
}

CHiveStatement& CHiveStatement::Bind(std::int64_t number)
{
    sqlite3_bind_int64(m_Statement, ++m_Place, number);
    return *this;
}

CHiveStatement& CHiveStatement::Bind(DWORD type, std::span<const BYTE> data)
{
    Bind(static_cast<std::int64_t>(type));
    BindData(m_Statement, ++m_Place, type, data);
    return *this;
}

bool CHiveStatement::Step()
{
    if (m_Code != ERROR_SUCCESS)
        return false;
    const int result = sqlite3_step(m_Statement);
    if (result == SQLITE_ROW)
        return true;
    if (result != SQLITE_DONE)
        m_Code = m_Connection.Note(result);
    return false;
}

LONG CHiveStatement::Run()
{
    Step();
    return m_Code;
}

std::int64_t CHiveStatement::Number(int column) const
{
    return sqlite3_column_int64(m_Statement, column);
}

std::string CHiveStatement::Text(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_Statement, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_Statement, column));
    return text ? std::string(text, size) : std::string();
}

CHiveValue CHiveStatement::Value(int typeColumn, int dataColumn) const
{
    const auto type = static_cast<DWORD>(Number(typeColumn));
    return {type, ReadData(m_Statement, dataColumn, type)};
}

} // namespace utility
