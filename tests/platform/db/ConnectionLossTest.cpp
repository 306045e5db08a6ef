#include "platform/db/GXDynamicRecordset.h"

#include "DatabaseFixture.h"
#include "LongQueries.h"

#include <chrono>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr auto LONGEST_WAIT = std::chrono::seconds(20); // the time-outs are 15

constexpr LPCWSTR END_OTHERS = u"SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
                               u"WHERE pid <> pg_backend_pid() AND datname = current_database()";

} // namespace

/// What happens when the far side of a connection goes.
class ConnectionLossTest : public CDatabaseTest
{
protected:
    /// Ends the server's side of the test's connection, as an administrator would.
    void EndServerSide()
    {
        CDatabase other;
        Allowed([&] { other.Open(nullptr, FALSE, FALSE, m_Connect); });
        if (IsOn(EServer::PostgreSQL))
        {
            CGXDynamicRecordset killer(&other);
            Allowed([&] { killer.Open(AFX_DB_USE_DEFAULT_TYPE, END_OTHERS); });
            return;
        }
        CString sql;
        sql.Format(u"KILL %s", m_ConnectionId);
        Allowed([&] { other.ExecuteSQL(sql); });
    }

    void NoteConnectionId()
    {
        if (!IsOn(EServer::MariaDB))
            return;
        CGXDynamicRecordset set(&m_Database);
        Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT CONNECTION_ID()"); });
        m_ConnectionId = set.GetFieldData(0);
    }

    CString m_ConnectionId;
};

TEST_P(ConnectionLossTest, StatementIsToldWithinTheTimeOut)
{
    NoteConnectionId();
    EndServerSide();
    const auto start = std::chrono::steady_clock::now();

    const CRefusal refusal = RefusalOf([&] { m_Database.ExecuteSQL(u"CREATE TABLE x (i INT)"); });

    EXPECT_EQ(refusal.Failure, EDBFailure::NoServer) << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_LT(std::chrono::steady_clock::now() - start, LONGEST_WAIT);
    m_Database.Close();
    Allowed([&] { m_Database.Open(nullptr, FALSE, FALSE, m_Connect); });
}

TEST_P(ConnectionLossTest, FetchUnderWayEndsWithAReason)
{
    NoteConnectionId();
    CGXDynamicRecordset set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, ManyRows(GetParam())); });
    EndServerSide();
    const auto start = std::chrono::steady_clock::now();

    const CRefusal refusal = RefusalOf([&] { set.MoveLast(); });

    EXPECT_LT(std::chrono::steady_clock::now() - start, LONGEST_WAIT);
    if (IsOn(EServer::PostgreSQL))
    {
        EXPECT_EQ(refusal.Failure, EDBFailure::NoServer)
            << refusal.Text << refusal.StateNativeOrigin;
    }
    else
    {
        EXPECT_EQ(refusal.Code, 0) << "MariaDB's driver holds all rows once the query is done";
    }
    set.Close();
}

UTILITY_ON_SERVERS(ConnectionLossTest);

/// A server that takes a connection and then says nothing.
class SilentServerTest : public testing::TestWithParam<EServer>
{
protected:
    void SetUp() override
    {
        m_Folder = CDatabaseServers::Get().GetFolder() / NameOf(GetParam());
        std::filesystem::create_directory(m_Folder);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string path = m_Folder / ".s.PGSQL.5432"; // a name that PostgreSQL lays down
        path.copy(address.sun_path, sizeof(address.sun_path) - 1);
        ASSERT_EQ(bind(m_Socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        ASSERT_EQ(listen(m_Socket, 1), 0);
    }
    void TearDown() override
    {
        close(m_Socket);
        std::filesystem::remove_all(m_Folder);
    }

    CString GetConnect() const
    {
        const CString folder = FromUtf8(m_Folder.string());
        return GetParam() == EServer::PostgreSQL
                   ? u"DRIVER={PostgreSQL Unicode};Servername=" + folder + u";Database=d;Username=u"
                   : u"DRIVER={MariaDB Unicode};SOCKET=" + folder + u"/.s.PGSQL.5432;UID=u";
    }

private:
    const int m_Socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    std::filesystem::path m_Folder;
};

TEST_P(SilentServerTest, OpenEndsWithTheLoginTimeOut)
{
    CDatabase database;
    database.SetLoginTimeout(1);
    const auto start = std::chrono::steady_clock::now();

    const CRefusal refusal = RefusalOf([&] { database.Open(nullptr, FALSE, FALSE, GetConnect()); });

    EXPECT_EQ(refusal.Failure, EDBFailure::NoServer) << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_LT(std::chrono::steady_clock::now() - start, LONGEST_WAIT);
    EXPECT_FALSE(database.IsOpen());
}

UTILITY_ON_SERVERS(SilentServerTest);

} // namespace utility
