#pragma once

#include "platform/base/String.h"

#include "support/ServerProcess.h"

#include <filesystem>
#include <memory>
#include <string>

namespace utility
{

enum class EServer
{
    SQLite,
    PostgreSQL,
    MariaDB
};

/// The three kinds of source that everything about databases is tested on.
constexpr EServer ALL_SERVERS[] = {EServer::SQLite, EServer::PostgreSQL, EServer::MariaDB};
const char* NameOf(EServer server);

constexpr LPCWSTR GUARDED_ROLE = u"guarded";
constexpr LPCWSTR GUARDED_PASSWORD = u"right one";

/// Throw-away servers of this test program: over Unix sockets in a temporary folder, each started
/// when it is first asked for, all gone with the program, also when it dies.
///
/// PostgreSQL trusts everybody but role GUARDED_ROLE, whom it asks for GUARDED_PASSWORD.
///
/// A machine that lacks a server or a driver makes the asking test fail: std::runtime_error with
/// what to install.
class CDatabaseServers
{
public:
    static CDatabaseServers& Get();
    CDatabaseServers(const CDatabaseServers&) = delete;
    CDatabaseServers& operator=(const CDatabaseServers&) = delete;

    /// The connect string of a new, empty database.
    CString MakeSource(EServer server);

    /// A connect string without its database key, for tests of refusals.
    CString GetServerConnect(EServer server);

    /// Ends a server at once with all its connections; RestartServer alone starts it again, if it
    /// does not run.
    void KillServer(EServer server);
    void RestartServer(EServer server);

    /// Where SQLite files lie, and anything else a test wants next to them.
    const std::filesystem::path& GetFolder() const { return m_Folder; }

private:
    CDatabaseServers();
    ~CDatabaseServers();

    void WriteDriverList();
    void InstallPostgreSQL();
    void InstallMariaDB();
    void StartPostgreSQL();
    void StartMariaDB();
    std::unique_ptr<CServerProcess>& GetProcess(EServer server);
    void WaitUntilReady(EServer server, CServerProcess& process);

    std::filesystem::path m_Folder;
    CServerWatch m_Watch;
    std::unique_ptr<CServerProcess> m_PostgreSQL;
    std::unique_ptr<CServerProcess> m_MariaDB;
    int m_Databases = 0;
};

} // namespace utility
