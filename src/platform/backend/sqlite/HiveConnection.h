#pragma once

#include "platform/backend/sqlite/HiveCache.h"
#include "platform/backend/sqlite/HiveEnumeration.h"
#include "platform/base/Types.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace utility
{

class CHiveGeneration;

/// One thread's connection to one store: its statements, its open transaction and its listings.
///
/// Paths and value names are folded, spelled names are not. All operations answer with a code of
/// the store's callers; those that change want an open transaction.
class CHiveConnection
{
public:
    CHiveConnection(sqlite3* database, CHiveGeneration& generation);
    ~CHiveConnection();
    CHiveConnection(const CHiveConnection&) = delete;
    CHiveConnection& operator=(const CHiveConnection&) = delete;

    // Reading
    LONG FindKey(std::string_view path, bool& there);
    LONG FindValue(std::string_view path, std::string_view name, std::optional<CHiveValue>& value);
    LONG GetKeyAt(std::string_view path, std::int64_t index, std::string& name,
                  std::string& className);
    LONG GetValueAt(std::string_view path, std::int64_t index, std::string& name,
                    CHiveValue& value);

    // Changing
    /// Makes the key `names` below `base`, which must be there, and what is missing between; `made`
    /// tells whether.
    LONG MakeKey(std::string_view base, const std::vector<std::string>& names,
                 const std::string& className, bool& made);
    LONG SetValue(std::string_view path, const std::string& folded, const std::string& name,
                  DWORD type, std::span<const BYTE> data);
    LONG DeleteValue(std::string_view path, const std::string& folded);
    LONG DeleteKey(std::string_view path);

    // Transactions; those within another belong to it
    LONG Begin();
    /// The outermost commits, or takes everything back if it or one within it does not keep.
    LONG End(bool keep);
    bool IsInTransaction() const { return m_Depth != 0; }
    bool IsNested() const { return m_Depth > 1; }

    /// What the last commit changed and between which generations, for the cache.
    struct CCommit
    {
        std::vector<CHiveCache::CChange> m_Changes;
        std::uint64_t m_Before = 0;
        std::uint64_t m_After = 0;
    };
    CCommit TakeCommit() { return std::move(m_Commit); }

    /// The file was found to be no sound database.
    bool IsDamaged() const { return m_Damaged; }
    /// A change was refused because the file may not be written.
    bool IsReadOnly() const { return m_ReadOnly; }

    std::uint64_t m_Incarnation = 0; // of the store when this was opened
    unsigned m_Fork = 0;             // how often this process had forked
    std::uint64_t m_FileNumber = 0;  // of the store's file

private:
    friend class CHiveStatement;

    static constexpr std::size_t STATEMENT_COUNT = 20;

    LONG Note(int result);
    void Changed(std::string_view path, const std::string* name = nullptr);
    LONG CommitOutermost();
    void RollBack();
    LONG CheckListings();
    LONG InsertKey(std::string_view parent, std::string_view path, const std::string& name,
                   const std::string& className);

    sqlite3* m_Database;
    CHiveGeneration& m_Generation;
    std::array<sqlite3_stmt*, STATEMENT_COUNT> m_Statements{};
    CHiveEnumeration m_Listings;
    CCommit m_Commit;
    int m_Depth = 0;
    bool m_Failed = false;
    bool m_Damaged = false;
    bool m_ReadOnly = false;
};

} // namespace utility
