#pragma once

#include <string>

struct sqlite3;

namespace utility
{

/// What is known of a store's place.
struct CHivePlace
{
    std::string m_Path;    // of the database
    std::string m_Gate;    // of the file whose lock guards making it
    bool m_Shared = false; // the machine's: read by all users, rollback journal

    unsigned GetFileMode() const { return m_Shared ? 0644 : 0600; }
};

/// False on a network disk, where neither a write-ahead log nor a mapped file reaches other
/// machines.
bool CanShareMemory(const CHivePlace& place);

/// Opens a store with everything that each connection needs; `create` makes file, folders and
/// tables.
///
/// A database result code; SQLITE_CANTOPEN also for a store that is not there. On success
/// `database` is open, perhaps for reading only.
int OpenHive(const CHivePlace& place, bool create, sqlite3*& database);

/// Runs statements without results.
int RunSql(sqlite3* database, const char* sql);

/// Renames a damaged store with its journals; false if that cannot be. `aside` is its new path.
bool SetHiveAside(const CHivePlace& place, std::string& aside);

} // namespace utility
