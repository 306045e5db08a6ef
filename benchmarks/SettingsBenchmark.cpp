#include "settings/Registry.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

using namespace utility;

// One value, as a program reads and writes it: an object made for the one call. The peer steps one
// prepared statement on a kept-open database with the same journal and the same care: no keys,
// types, spellings or other readers to think of.

namespace
{

constexpr int VALUES = 200; // of one key, as a large dialog keeps

/// A folder on the disk that settings live on, gone at the end.
class CPlace
{
public:
    CPlace()
        : m_Path(std::filesystem::temp_directory_path() /
                 ("settings-benchmark-" + std::to_string(getpid())))
    {
        std::filesystem::create_directories(m_Path);
    }
    ~CPlace() { std::filesystem::remove_all(m_Path); }
    CPlace(const CPlace&) = delete;
    CPlace& operator=(const CPlace&) = delete;

    std::string PathOf(const char* name) const { return m_Path / name; }

private:
    std::filesystem::path m_Path;
};

CString NameOf(int number)
{
    CString name;
    name.Format(u"Value%d", number);
    return name;
}

/// A store of its own with one key of values.
class CStore
{
public:
    CStore()
    {
        setenv("UTILITY_SETTINGS_DIR", m_Place.PathOf("").c_str(), 1);
        ReopenRegistry();
        CRegistry key(KEY, HKEY_CURRENT_USER);
        for (int number = 0; number < VALUES; ++number)
            key.SetValue(NameOf(number), number);
    }
    ~CStore()
    {
        unsetenv("UTILITY_SETTINGS_DIR");
        ReopenRegistry();
    }
    CStore(const CStore&) = delete;
    CStore& operator=(const CStore&) = delete;

    static constexpr char16_t KEY[] = u"Software\\Makers\\Board\\Application\\Windows";

private:
    CPlace m_Place;
};

/// One table and one statement on it.
class CBareTable
{
public:
    explicit CBareTable(const char* sql)
    {
        sqlite3_open(m_Place.PathOf("bare.db").c_str(), &m_Database);
        sqlite3_exec(m_Database,
                     "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;"
                     "CREATE TABLE settings (name TEXT PRIMARY KEY, value) WITHOUT ROWID;"
                     "INSERT INTO settings WITH RECURSIVE n (i) AS (SELECT 0 UNION ALL SELECT i + 1"
                     " FROM n WHERE i < 199) SELECT 'value' || i, i FROM n",
                     nullptr, nullptr, nullptr);
        sqlite3_prepare_v2(m_Database, sql, -1, &m_Statement, nullptr);
        sqlite3_bind_text(m_Statement, 1, "value100", -1, SQLITE_STATIC);
    }
    ~CBareTable()
    {
        sqlite3_finalize(m_Statement);
        sqlite3_close(m_Database);
    }
    CBareTable(const CBareTable&) = delete;
    CBareTable& operator=(const CBareTable&) = delete;

    sqlite3_stmt* GetStatement() const { return m_Statement; }

private:
    CPlace m_Place;
    sqlite3* m_Database = nullptr;
    sqlite3_stmt* m_Statement = nullptr;
};

void ReadOurs(benchmark::State& state)
{
    const CStore store;
    const CString path = CStore::KEY;
    const CString name = NameOf(100);
    for (auto _ : state)
    {
        int value = -1;
        const bool read = CRegistry(path, HKEY_CURRENT_USER).GetValue(name, value);
        if (!read || value != 100)
            state.SkipWithError("the value was not read");
    }
}

/// The first read behind a write of this value, which no cache can answer.
void ReadOursAfterAWrite(benchmark::State& state)
{
    const CStore store;
    const CString path = CStore::KEY;
    const CString name = NameOf(100);
    int stamp = 0;
    for (auto _ : state)
    {
        state.PauseTiming();
        CRegistry(path, HKEY_CURRENT_USER).SetValue(name, ++stamp);
        state.ResumeTiming();
        int value = -1;
        if (!CRegistry(path, HKEY_CURRENT_USER).GetValue(name, value) || value != stamp)
            state.SkipWithError("the value was not read");
    }
}

void ReadBare(benchmark::State& state)
{
    const CBareTable table("SELECT value FROM settings WHERE name = ?");
    for (auto _ : state)
    {
        sqlite3_step(table.GetStatement());
        if (sqlite3_column_int(table.GetStatement(), 0) != 100)
            state.SkipWithError("the value was not read");
        sqlite3_reset(table.GetStatement());
    }
}

void WriteOurs(benchmark::State& state)
{
    const CStore store;
    const CString path = CStore::KEY;
    const CString name = NameOf(100);
    int value = 0;
    for (auto _ : state)
    {
        if (!CRegistry(path, HKEY_CURRENT_USER).SetValue(name, ++value))
            state.SkipWithError("the value was not written");
    }
}

void WriteBare(benchmark::State& state)
{
    const CBareTable table("INSERT INTO settings VALUES (?, ?)"
                           " ON CONFLICT (name) DO UPDATE SET value = excluded.value");
    int value = 0;
    for (auto _ : state)
    {
        sqlite3_bind_int(table.GetStatement(), 2, ++value);
        if (sqlite3_step(table.GetStatement()) != SQLITE_DONE)
            state.SkipWithError("the value was not written");
        sqlite3_reset(table.GetStatement());
    }
}

BENCHMARK(ReadOurs)->Name("settings read/ours");
BENCHMARK(ReadBare)->Name("settings read/bare sqlite");
BENCHMARK(ReadOursAfterAWrite)->Name("settings first read/ours");
BENCHMARK(WriteOurs)->Name("settings write/ours");
BENCHMARK(WriteBare)->Name("settings write/bare sqlite");

} // namespace
