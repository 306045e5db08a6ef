#include "support/DatabaseServers.h"

#include "platform/base/Encoding.h"
#include "platform/db/DBException.h"
#include "platform/db/Database.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace utility
{

namespace
{

namespace fs = std::filesystem;

constexpr auto LONGEST_START = std::chrono::seconds(60);
constexpr const char* POSTGRESQL_USER = "postgres"; // its server refuses to run as root
constexpr auto BETWEEN_TRIES = std::chrono::milliseconds(20);

fs::path MakeFolder()
{
    std::string pattern = (fs::temp_directory_path() / "utility-db-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no temporary folder for the database servers");
    fs::permissions(pattern, fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec);
    return pattern;
}

/// The newest set of server programs; a distribution keeps them out of the search path.
fs::path FindPostgreSQL()
{
    fs::path newest;
    std::error_code failure;
    for (const auto& version : fs::directory_iterator("/usr/lib/postgresql", failure))
        if (fs::exists(version.path() / "bin/postgres") && version.path() > newest)
            newest = version.path();
    if (newest.empty())
        throw std::runtime_error("PostgreSQL's server is missing: apt-get install postgresql");
    return newest / "bin";
}

void RequireMariaDB()
{
    for (const char* program : {"/usr/sbin/mariadbd", "/usr/bin/mariadb-install-db"})
        if (!fs::exists(program))
            throw std::runtime_error("MariaDB's server is missing: apt-get install mariadb-server");
}

/// A folder that a server's user may write.
fs::path MakeServerFolder(const fs::path& path, const char* user)
{
    fs::create_directory(path);
    fs::permissions(path, fs::perms::owner_all);
    if (user && geteuid() == 0)
        RunProgram({"chown", user, path.string()}, nullptr, path.parent_path() / "chown.log");
    return path;
}

CString Widen(const fs::path& path)
{
    return FromUtf8(path.string());
}

void ExecuteOn(const CString& connect, const CString& sql)
{
    CDatabase database;
    database.Open(nullptr, FALSE, FALSE, connect);
    database.ExecuteSQL(sql);
}

} // namespace

const char* NameOf(EServer server)
{
    switch (server)
    {
    case EServer::SQLite:
        return "SQLite";
    case EServer::PostgreSQL:
        return "PostgreSQL";
    case EServer::MariaDB:
        return "MariaDB";
    }
    return "";
}

CDatabaseServers& CDatabaseServers::Get()
{
    static CDatabaseServers servers;
    return servers;
}

CDatabaseServers::CDatabaseServers() : m_Folder(MakeFolder()), m_Watch(m_Folder)
{
    WriteDriverList();
    setenv("ODBCSYSINI", m_Folder.c_str(), 1);
    setenv("ODBCINI", (m_Folder / "odbc.ini").c_str(), 1);
}

CDatabaseServers::~CDatabaseServers() = default;

/// The drivers under their usual names, so that a dialect is told from the name; and a source of
/// each kind by name.
void CDatabaseServers::WriteDriverList()
{
    std::ofstream drivers(m_Folder / "odbcinst.ini");
    drivers << "[SQLite3]\nDriver=libsqlite3odbc.so\n\n"
               "[PostgreSQL Unicode]\nDriver=psqlodbcw.so\n\n"
               "[MariaDB Unicode]\nDriver=libmaodbc.so\n";
    std::ofstream sources(m_Folder / "odbc.ini");
    sources << "[file_stock]\nDriver=SQLite3\nDatabase=" << (m_Folder / "named.db").string()
            << "\n\n[served_stock]\nDriver=PostgreSQL Unicode\nServername="
            << (m_Folder / "pg-socket").string() << "\nDatabase=postgres\nUsername=utility\n";
}

CString CDatabaseServers::GetServerConnect(EServer server)
{
    switch (server)
    {
    case EServer::SQLite:
        return u"DRIVER={SQLite3};";
    case EServer::PostgreSQL:
        if (!m_PostgreSQL)
            InstallPostgreSQL();
        return u"DRIVER={PostgreSQL Unicode};Servername=" + Widen(m_Folder / "pg-socket") +
               u";Username=utility;";
    case EServer::MariaDB:
        if (!m_MariaDB)
            InstallMariaDB();
        return u"DRIVER={MariaDB Unicode};SOCKET=" + Widen(m_Folder / "my-socket" / "s") +
               u";UID=root;";
    }
    throw std::logic_error("an unknown server");
}

CString CDatabaseServers::MakeSource(EServer server)
{
    const CString connect = GetServerConnect(server);
    CString name;
    name.Format(u"stock%d", ++m_Databases);
    if (server == EServer::SQLite)
        return connect + u"Database=" + Widen(m_Folder) + u"/" + name + u".db";
    ExecuteOn(connect + (server == EServer::PostgreSQL ? u"Database=postgres" : u""),
              u"CREATE DATABASE " + name);
    return connect + u"DATABASE=" + name;
}

void CDatabaseServers::KillServer(EServer server)
{
    GetProcess(server)->Kill();
}

void CDatabaseServers::RestartServer(EServer server)
{
    if (!GetProcess(server)->IsRunning())
        server == EServer::PostgreSQL ? StartPostgreSQL() : StartMariaDB();
}

std::unique_ptr<CServerProcess>& CDatabaseServers::GetProcess(EServer server)
{
    if (server == EServer::SQLite)
        throw std::logic_error("SQLite has no server");
    return server == EServer::PostgreSQL ? m_PostgreSQL : m_MariaDB;
}

void CDatabaseServers::InstallPostgreSQL()
{
    const fs::path data = MakeServerFolder(m_Folder / "pg", POSTGRESQL_USER);
    MakeServerFolder(m_Folder / "pg-socket", POSTGRESQL_USER);
    RunProgram({FindPostgreSQL() / "initdb", "-D", data, "-U", "utility", "-A", "trust", "-E",
                "UTF8", "--locale=C.UTF-8", "--no-sync"},
               POSTGRESQL_USER, m_Folder / "initdb.log");
    fs::permissions(m_Folder / "pg-socket", fs::perms::all);
    std::ofstream(data / "pg_hba.conf")
        << "local all " << ToUtf8(GUARDED_ROLE) << " scram-sha-256\nlocal all all trust\n";
    StartPostgreSQL();
    ExecuteOn(GetServerConnect(EServer::PostgreSQL) + u"Database=postgres",
              CString(u"CREATE ROLE ") + GUARDED_ROLE + u" LOGIN PASSWORD '" + GUARDED_PASSWORD +
                  u"'");
}

void CDatabaseServers::StartPostgreSQL()
{
    m_PostgreSQL = std::make_unique<CServerProcess>(
        CArguments{FindPostgreSQL() / "postgres", "-D", m_Folder / "pg", "-k",
                   m_Folder / "pg-socket", "-c", "listen_addresses=", "-c", "fsync=off"},
        POSTGRESQL_USER, m_Folder / "postgres.log");
    WaitUntilReady(EServer::PostgreSQL, *m_PostgreSQL);
}

void CDatabaseServers::InstallMariaDB()
{
    RequireMariaDB();
    const fs::path data = MakeServerFolder(m_Folder / "my", nullptr);
    MakeServerFolder(m_Folder / "my-socket", nullptr);
    RunProgram({"/usr/bin/mariadb-install-db", "--no-defaults",
                "--auth-root-authentication-method=normal", "--skip-test-db",
                "--datadir=" + data.string(), "--user=root"},
               nullptr, m_Folder / "install-db.log");
    StartMariaDB();
}

void CDatabaseServers::StartMariaDB()
{
    const fs::path data = m_Folder / "my";
    const std::string user = geteuid() == 0 ? "--user=root" : "--skip-networking";
    m_MariaDB = std::make_unique<CServerProcess>(
        CArguments{"/usr/sbin/mariadbd", "--no-defaults", user, "--skip-networking",
                   "--socket=" + (m_Folder / "my-socket" / "s").string(),
                   "--datadir=" + data.string(), "--pid-file=" + (data / "pid").string(),
                   "--character-set-server=utf8mb4", "--innodb-flush-log-at-trx-commit=0"},
        nullptr, m_Folder / "mariadb.log");
    WaitUntilReady(EServer::MariaDB, *m_MariaDB);
}

void CDatabaseServers::WaitUntilReady(EServer server, CServerProcess& process)
{
    const CString connect =
        GetServerConnect(server) + (server == EServer::PostgreSQL ? u"Database=postgres" : u"");
    const auto deadline = std::chrono::steady_clock::now() + LONGEST_START;
    std::string words;
    while (process.IsRunning() && std::chrono::steady_clock::now() < deadline)
    {
        try
        {
            CDatabase database;
            database.Open(nullptr, FALSE, FALSE, connect);
            return;
        }
        catch (CDBException* exception)
        {
            const CExceptionGuard guard(exception);
            words = ToUtf8(exception->GetErrorText().View());
            if (exception->m_Failure == EDBFailure::NoDriver)
                break;
        }
        std::this_thread::sleep_for(BETWEEN_TRIES);
    }
    throw std::runtime_error(std::string(NameOf(server)) + " did not start: " + words + "\n" +
                             process.ReadLog());
}

} // namespace utility
