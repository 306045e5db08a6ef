#include "platform/backend/sqlite/HiveConnection.h"

#include "platform/backend/sqlite/HiveGeneration.h"
#include "platform/backend/sqlite/HivePath.h"
#include "platform/backend/sqlite/HiveStatement.h"
#include "platform/base/Encoding.h"
#include "platform/base/ErrorCodes.h"

#include <sqlite3.h>

namespace utility
{

namespace
{

LONG CodeOf(int result)
{
    switch (result & 0xff)
    {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return ERROR_SUCCESS;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ERROR_LOCK_VIOLATION;
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return ERROR_ACCESS_DENIED;
    case SQLITE_FULL:
        return ERROR_DISK_FULL;
    case SQLITE_NOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case SQLITE_TOOBIG:
        return ERROR_INVALID_PARAMETER;
    default:
        return ERROR_GEN_FAILURE;
    }
}

} // namespace

CHiveConnection::CHiveConnection(sqlite3* database, CHiveGeneration& generation)
    : m_Database(database),
      m_Generation(generation)
{
    static_assert(STATEMENT_COUNT >= static_cast<std::size_t>(EHiveStatement::Count));
}

CHiveConnection::~CHiveConnection()
{
    for (sqlite3_stmt* statement : m_Statements)
        sqlite3_finalize(statement);
    sqlite3_close(m_Database);
}

LONG CHiveConnection::Note(int result)
{
    const int kind = result & 0xff;
    m_Damaged = m_Damaged || kind == SQLITE_CORRUPT || kind == SQLITE_NOTADB;
    m_ReadOnly = m_ReadOnly || CodeOf(result) == ERROR_ACCESS_DENIED;
    return CodeOf(result);
}

LONG CHiveConnection::FindKey(std::string_view path, bool& there)
{
    CHiveStatement find(*this, EHiveStatement::FindKey);
    there = find.Bind(path).Step();
    return find.GetCode();
}

LONG CHiveConnection::FindValue(std::string_view path, std::string_view name,
                                std::optional<CHiveValue>& value)
{
    CHiveStatement find(*this, EHiveStatement::FindValue);
    if (find.Bind(path).Bind(name).Step())
        value = find.Value(0, 1);
    return find.GetCode();
}

LONG CHiveConnection::CheckListings()
{
    CHiveStatement version(*this, EHiveStatement::DataVersion);
    if (version.Step())
        m_Listings.CheckVersion(version.Number(0));
    return version.GetCode();
}

LONG CHiveConnection::GetKeyAt(std::string_view path, std::int64_t index, std::string& name,
                               std::string& className)
{
    if (const LONG code = CheckListings(); code != ERROR_SUCCESS)
        return code;
    const CHiveStep step = m_Listings.StepTo(EHiveWalk::Keys, path, index);
    CHiveStatement find(*this, step.m_Back ? EHiveStatement::LastKey : EHiveStatement::NextKey);
    if (!find.Bind(path).Bind(step.m_From.m_Path).Bind(step.m_Skip).Step())
        return find.GetCode() == ERROR_SUCCESS ? ERROR_NO_MORE_ITEMS : find.GetCode();
    name = find.Text(1);
    className = find.Text(2);
    m_Listings.Remember(EHiveWalk::Keys, path, {find.Text(0), -1, index + 1});
    return ERROR_SUCCESS;
}

LONG CHiveConnection::GetValueAt(std::string_view path, std::int64_t index, std::string& name,
                                 CHiveValue& value)
{
    if (const LONG code = CheckListings(); code != ERROR_SUCCESS)
        return code;
    const CHiveStep step = m_Listings.StepTo(EHiveWalk::Values, path, index);
    CHiveStatement find(*this, step.m_Back ? EHiveStatement::LastValue : EHiveStatement::NextValue);
    if (!find.Bind(path).Bind(step.m_From.m_Row).Bind(step.m_Skip).Step())
        return find.GetCode() == ERROR_SUCCESS ? ERROR_NO_MORE_ITEMS : find.GetCode();
    name = find.Text(1);
    value = find.Value(2, 3);
    m_Listings.Remember(EHiveWalk::Values, path, {std::string(), find.Number(0), index + 1});
    return ERROR_SUCCESS;
}

LONG CHiveConnection::InsertKey(std::string_view parent, std::string_view path,
                                const std::string& name, const std::string& className)
{
    {
        CHiveStatement insert(*this, EHiveStatement::InsertKey);
        const LONG code = insert.Bind(parent).Bind(path).Bind(name).Bind(className).Run();
        if (code != ERROR_SUCCESS)
            return code;
    }
    if (sqlite3_changes(m_Database) == 0)
        return ERROR_FILE_NOT_FOUND;
    m_Listings.KeyMade(path);
    Changed(path);
    return ERROR_SUCCESS;
}

LONG CHiveConnection::MakeKey(std::string_view base, const std::vector<std::string>& names,
                              const std::string& className, bool& made)
{
    made = false;
    std::string path(base);
    for (const std::string& name : names)
    {
        const std::size_t parentLength = path.size();
        if (!AppendFoldedPath(path, FromUtf8(name).View()))
            return ERROR_INVALID_PARAMETER;
        bool there = false;
        LONG code = FindKey(path, there);
        if (code == ERROR_SUCCESS && !there)
        {
            made = true;
            const bool last = &name == &names.back();
            code = InsertKey(std::string_view(path).substr(0, parentLength), path, name,
                             last ? className : std::string());
        }
        if (code != ERROR_SUCCESS)
            return code;
    }
    return ERROR_SUCCESS;
}

LONG CHiveConnection::SetValue(std::string_view path, const std::string& folded,
                               const std::string& name, DWORD type, std::span<const BYTE> data)
{
    {
        CHiveStatement upsert(*this, EHiveStatement::UpsertValue);
        const LONG code = upsert.Bind(path).Bind(folded).Bind(name).Bind(type, data).Run();
        if (code != ERROR_SUCCESS)
            return code;
    }
    if (sqlite3_changes(m_Database) == 0)
        return ERROR_FILE_NOT_FOUND;
    Changed(path, &folded);
    return ERROR_SUCCESS;
}

LONG CHiveConnection::DeleteValue(std::string_view path, const std::string& folded)
{
    std::int64_t row = 0;
    {
        CHiveStatement find(*this, EHiveStatement::FindValueRow);
        if (!find.Bind(path).Bind(folded).Step())
            return find.GetCode() == ERROR_SUCCESS ? ERROR_FILE_NOT_FOUND : find.GetCode();
        row = find.Number(0);
    }
    CHiveStatement erase(*this, EHiveStatement::DeleteValue);
    if (const LONG code = erase.Bind(row).Run(); code != ERROR_SUCCESS)
        return code;
    m_Listings.ValueDeleted(path, row);
    Changed(path, &folded);
    return ERROR_SUCCESS;
}

LONG CHiveConnection::DeleteKey(std::string_view path)
{
    {
        CHiveStatement below(*this, EHiveStatement::HasSubKeys);
        if (below.Bind(path).Step())
            return ERROR_ACCESS_DENIED;
        if (below.GetCode() != ERROR_SUCCESS)
            return below.GetCode();
    }
    {
        CHiveStatement erase(*this, EHiveStatement::DeleteKey);
        if (const LONG code = erase.Bind(path).Run(); code != ERROR_SUCCESS)
            return code;
    }
    if (sqlite3_changes(m_Database) == 0)
        return ERROR_FILE_NOT_FOUND;
    m_Listings.KeyDeleted(path);
    Changed(path);
    return ERROR_SUCCESS;
}

void CHiveConnection::Changed(std::string_view path, const std::string* name)
{
    m_Commit.m_Changes.push_back(
        {std::string(path), name ? std::optional<std::string>(*name) : std::nullopt});
}

LONG CHiveConnection::Begin()
{
    if (m_Depth != 0)
    {
        // A full disk may have ended the transaction by itself; what follows must not stand alone.
        m_Failed = m_Failed || sqlite3_get_autocommit(m_Database) != 0;
        if (m_Failed)
            return ERROR_GEN_FAILURE;
        ++m_Depth;
        return ERROR_SUCCESS;
    }
    m_Commit = {};
    m_Failed = false;
    const LONG code = CHiveStatement(*this, EHiveStatement::Begin).Run();
    if (code == ERROR_SUCCESS)
        m_Depth = 1;
    return code;
}

LONG CHiveConnection::End(bool keep)
{
    m_Failed = m_Failed || !keep;
    if (--m_Depth != 0)
        return m_Failed ? ERROR_GEN_FAILURE : ERROR_SUCCESS;
    if (m_Failed)
    {
        RollBack();
        return ERROR_GEN_FAILURE;
    }
    return CommitOutermost();
}

LONG CHiveConnection::CommitOutermost()
{
    if (m_Commit.m_Changes.empty())
        return CHiveStatement(*this, EHiveStatement::Commit).Run();
    const CHiveGeneration::CWrite write = m_Generation.BeginWrite();
    const LONG code = CHiveStatement(*this, EHiveStatement::Commit).Run();
    if (code != ERROR_SUCCESS)
        RollBack();
    m_Commit.m_After = m_Generation.EndWrite(write);
    m_Commit.m_Before = write.m_Before;
    return code;
}

void CHiveConnection::RollBack()
{
    if (sqlite3_get_autocommit(m_Database) == 0)
        CHiveStatement(*this, EHiveStatement::RollBack).Run();
    m_Listings.ForgetAll();
    m_Commit = {};
}

} // namespace utility
