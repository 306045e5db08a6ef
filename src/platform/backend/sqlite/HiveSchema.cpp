#include "platform/backend/sqlite/HiveSchema.h"

#include "platform/backend/sqlite/HiveGeneration.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr int SCHEMA_VERSION = 1;
constexpr int BUSY_TIMEOUT = 5000; // milliseconds

// The root is a key of its own, so that values and sub-keys may stand there. Row numbers of values
// rise with their making, which is the order they are listed in; none is used twice, since listings
// under way remember them.
constexpr char SCHEMA[] = R"(
CREATE TABLE IF NOT EXISTS keys (
    id INTEGER PRIMARY KEY,
    parent INTEGER NOT NULL,
    path TEXT NOT NULL UNIQUE,
    name TEXT NOT NULL,
    class TEXT NOT NULL);
CREATE INDEX IF NOT EXISTS keys_by_parent ON keys (parent, path);
CREATE TABLE IF NOT EXISTS key_values (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    key INTEGER NOT NULL REFERENCES keys (id) ON DELETE CASCADE,
    folded TEXT NOT NULL,
    name TEXT NOT NULL,
    type INTEGER NOT NULL,
    data,
    UNIQUE (key, folded));
CREATE INDEX IF NOT EXISTS key_values_by_key ON key_values (key);
INSERT OR IGNORE INTO keys VALUES (1, 0, '', '', '');
PRAGMA user_version = 1;
)";

// Kinds of network disks by their magic numbers: shared memory does not reach over them, so no
// write-ahead log there.
constexpr std::array<std::uint32_t, 9> NETWORK_DISKS = {
    0x6969 /* NFS */,      0x517B /* SMB */,      0xFF534D42 /* CIFS */,
    0xFE534D42 /* SMB2 */, 0x5346414F /* AFS */,  0x01021997 /* 9P */,
    0x00C36400 /* Ceph */, 0x65735546 /* FUSE */, 0x0BD00BD0 /* Lustre */};

std::string FolderOf(const std::string& path)
{
    return path.substr(0, path.rfind('/'));
}

/// Makes the folder and those above it that are missing.
void MakeFolders(const std::string& folder, mode_t mode)
{
    for (std::size_t at = 1; at != std::string::npos;)
    {
        at = folder.find('/', at + 1);
        mkdir(folder.substr(0, at).c_str(), mode);
    }
}

/// An empty file is an empty database; made here for its mode, which the journals then get as well.
void MakeFile(const CHivePlace& place)
{
    MakeFolders(FolderOf(place.m_Path), place.m_Shared ? 0755 : 0700);
    const int file = open(place.m_Path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, place.GetFileMode());
    if (file >= 0)
        close(file);
}

int ReadVersion(sqlite3* database, int& version)
{
    sqlite3_stmt* statement = nullptr;
    int result = sqlite3_prepare_v2(database, "PRAGMA user_version", -1, &statement, nullptr);
    if (result == SQLITE_OK)
    {
        result = sqlite3_step(statement);
        if (result == SQLITE_ROW)
            version = sqlite3_column_int(statement, 0);
        result = result == SQLITE_ROW ? SQLITE_OK : result;
    }
    sqlite3_finalize(statement);
    return result;
}

int OpenFile(const std::string& name, int flags, sqlite3*& database)
{
    const int result =
        sqlite3_open_v2(name.c_str(), &database, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result != SQLITE_OK)
        return result;
    sqlite3_busy_timeout(database, BUSY_TIMEOUT);
    return SQLITE_OK;
}

/// Makes the tables under the gate: of several processes that begin at once the others wait, then
/// find them made.
int MakeTables(const CHivePlace& place, sqlite3* database)
{
    const CHiveGate gate(place.m_Gate, place.GetFileMode());
    if (gate.HasTimedOut())
        return SQLITE_BUSY;
    const bool rollback = place.m_Shared || !CanShareMemory(place);
    int result =
        RunSql(database, rollback ? "PRAGMA journal_mode = DELETE" : "PRAGMA journal_mode = WAL");
    if (result == SQLITE_OK)
        result = RunSql(database, "BEGIN IMMEDIATE");
    if (result != SQLITE_OK)
        return result;
    result = RunSql(database, SCHEMA);
    if (result == SQLITE_OK)
        return RunSql(database, "COMMIT");
    RunSql(database, "ROLLBACK");
    return result;
}

/// A store in a folder that may not be written, with no journal left over, is read as it lies.
int OpenAsItLies(const CHivePlace& place, sqlite3*& database)
{
    sqlite3_close(database);
    database = nullptr;
    struct stat journal = {};
    if (stat((place.m_Path + "-wal").c_str(), &journal) == 0 && journal.st_size != 0)
        return SQLITE_CANTOPEN;
    std::string name = "file:";
    for (const char byte : place.m_Path)
    {
        if (byte == '?' || byte == '#' || byte == '%')
        {
            constexpr char DIGITS[] = "0123456789ABCDEF";
            name += {'%', DIGITS[static_cast<unsigned char>(byte) >> 4], DIGITS[byte & 15]};
        }
        else
            name += byte;
    }
    return OpenFile(name + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, database);
}

int Prepare(const CHivePlace& place, bool create, sqlite3*& database)
{
    int version = 0;
    int result = ReadVersion(database, version);
    const bool readOnly = sqlite3_db_readonly(database, "main") == 1 ||
                          access(FolderOf(place.m_Path).c_str(), W_OK) != 0;
    if ((result == SQLITE_CANTOPEN || result == SQLITE_READONLY) && readOnly && !create)
    {
        result = OpenAsItLies(place, database);
        if (result == SQLITE_OK)
            result = ReadVersion(database, version);
    }
    if (result == SQLITE_OK && version == 0)
        result = readOnly ? SQLITE_CANTOPEN : MakeTables(place, database);
    if (result != SQLITE_OK)
        return result;
    // A newer library's store: nothing here knows what its tables mean.
    if (version > SCHEMA_VERSION)
        return SQLITE_MISMATCH;
    return RunSql(database, place.m_Shared
                                ? "PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL"
                                : "PRAGMA foreign_keys = ON; PRAGMA synchronous = NORMAL;"
                                  "PRAGMA wal_autocheckpoint = 1000;"
                                  "PRAGMA journal_size_limit = 4194304");
}

} // namespace

bool CanShareMemory(const CHivePlace& place)
{
    struct statfs status = {};
    if (statfs(FolderOf(place.m_Path).c_str(), &status) != 0)
        return true;
    return std::find(NETWORK_DISKS.begin(), NETWORK_DISKS.end(),
                     static_cast<std::uint32_t>(status.f_type)) == NETWORK_DISKS.end();
}

int RunSql(sqlite3* database, const char* sql)
{
    return sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
}

int OpenHive(const CHivePlace& place, bool create, sqlite3*& database)
{
    database = nullptr;
    if (create)
        MakeFile(place);
    else if (access(place.m_Path.c_str(), F_OK) != 0)
        return SQLITE_CANTOPEN; // before the database looks: most machines have no store for all
    int result = OpenFile(place.m_Path, SQLITE_OPEN_READWRITE, database);
    if (result == SQLITE_OK)
        result = Prepare(place, create, database);
    if (result == SQLITE_OK)
        return result;
    sqlite3_close(database);
    database = nullptr;
    return result & 0xff;
}

bool SetHiveAside(const CHivePlace& place, std::string& aside)
{
    char stamp[32] = {};
    const std::time_t now = std::time(nullptr);
    std::tm parts = {};
    std::strftime(stamp, sizeof(stamp), ".damaged-%Y%m%d-%H%M%S", gmtime_r(&now, &parts));
    aside = place.m_Path + stamp;
    for (int number = 2; access(aside.c_str(), F_OK) == 0; ++number)
        aside = place.m_Path + stamp + "-" + std::to_string(number);

    // The journals first: an old journal beside a new store would be taken for the new one's.
    for (const char* journal : {"-wal", "-shm", "-journal"})
        rename((place.m_Path + journal).c_str(), (aside + journal).c_str());
    return rename(place.m_Path.c_str(), aside.c_str()) == 0;
}

} // namespace utility
