#include "platform/db/GXDynamicRecordset.h"

#include "DatabaseFixture.h"

#include <chrono>
#include <thread>

namespace utility
{

namespace
{

constexpr auto LONGEST_WAIT = std::chrono::seconds(20); // the time-outs are 15

/// More rows than one row set holds, without a table.
LPCWSTR ManyRows(EServer server)
{
    return server == EServer::PostgreSQL
               ? u"SELECT g, repeat('x', 500) FROM generate_series(1, 200000) AS g"
               : u"SELECT seq, REPEAT('x', 500) FROM seq_1_to_200000";
}

/// A query that its server works on for a minute, and how many of them the server says it works on.
LPCWSTR LongQuery(EServer server)
{
    return server == EServer::PostgreSQL
               ? u"SELECT pg_sleep(60)"
               : u"SELECT SLEEP(60) FROM (SELECT 1 UNION SELECT 2) AS twice";
}

LPCWSTR CountLongQueries(EServer server)
{
    return server == EServer::PostgreSQL
               ? u"SELECT COUNT(*) FROM pg_stat_activity WHERE wait_event = 'PgSleep'"
               : u"SELECT COUNT(*) FROM information_schema.processlist WHERE state = 'User sleep'";
}

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

/// The whole server goes, and comes back.
class ServerLossTest : public CDatabaseTest
{
protected:
    void TearDown() override { CDatabaseServers::Get().RestartServer(GetParam()); }

    /// Once the server works on the test's long query, ends the server.
    void KillServerInQuery()
    {
        CDatabase watch;
        watch.Open(nullptr, FALSE, FALSE, m_Connect);
        CGXDynamicRecordset count(&watch);
        count.Open(AFX_DB_USE_DEFAULT_TYPE, CountLongQueries(GetParam()));
        const auto deadline = std::chrono::steady_clock::now() + LONGEST_WAIT;
        while (count.GetFieldData(0) != u"1" && std::chrono::steady_clock::now() < deadline)
            count.Requery();
        EXPECT_EQ(count.GetFieldData(0), u"1");
        CDatabaseServers::Get().KillServer(GetParam());
    }

    /// Nothing works until the server is back, everything does then.
    void ExpectToWorkOnceTheServerIsBack()
    {
        EXPECT_NE(RefusalOf([&] { m_Database.ExecuteSQL(u"SELECT 1"); }).Code, 0);
        m_Database.Close();
        const CRefusal refusal =
            RefusalOf([&] { m_Database.Open(nullptr, FALSE, FALSE, m_Connect); });
        EXPECT_EQ(refusal.Failure, EDBFailure::NoServer) << refusal.Text;
        EXPECT_FALSE(m_Database.IsOpen());

        CDatabaseServers::Get().RestartServer(GetParam());
        Allowed([&] { m_Database.Open(nullptr, FALSE, FALSE, m_Connect); });
        CGXDynamicRecordset set(&m_Database);
        Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT 42"); });
        EXPECT_EQ(set.GetFieldData(0), u"42");
    }
};

TEST_P(ServerLossTest, StatementAfterItIsToldSo)
{
    CDatabaseServers::Get().KillServer(GetParam());

    const CRefusal refusal = RefusalOf([&] { m_Database.ExecuteSQL(u"CREATE TABLE x (i INT)"); });

    EXPECT_EQ(refusal.Failure, EDBFailure::NoServer) << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_EQ(refusal.State, "08S01");
    EXPECT_EQ(refusal.Text.find("Database not reached: "), 0u) << refusal.Text;
    ExpectToWorkOnceTheServerIsBack();
}

TEST_P(ServerLossTest, QueryUnderWayIsToldSo)
{
    CRefusal refusal;
    {
        const std::jthread killer([this] { Allowed([this] { KillServerInQuery(); }); });
        CGXDynamicRecordset set(&m_Database);
        refusal = RefusalOf([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, LongQuery(GetParam())); });
    }
    EXPECT_EQ(refusal.Failure, EDBFailure::NoServer) << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_EQ(refusal.State, "08S01");
    EXPECT_EQ(refusal.Text.find_first_of("\t\n"), std::string::npos) << refusal.Text;
    ExpectToWorkOnceTheServerIsBack();
}

TEST_P(ServerLossTest, FetchKeepsTheRowsThatCame)
{
    CGXDynamicRecordset set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, ManyRows(GetParam())); });
    CDatabaseServers::Get().KillServer(GetParam());

    const CRefusal refusal = RefusalOf([&] { set.MoveLast(); });

    // MariaDB's driver holds all rows once the query is done.
    EXPECT_EQ(refusal.Failure, IsOn(EServer::PostgreSQL) ? EDBFailure::NoServer : EDBFailure::Other)
        << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_EQ(refusal.Code == 0, IsOn(EServer::MariaDB));
    Allowed([&] { set.SetAbsolutePosition(1); });
    EXPECT_EQ(set.GetFieldData(0), u"1");
    set.Close();
    ExpectToWorkOnceTheServerIsBack();
}

TEST_P(ServerLossTest, TransactionUnderWayLeavesNothing)
{
    Execute(u"CREATE TABLE [Kept] ([i] INTEGER)");
    ASSERT_TRUE(m_Database.BeginTrans());
    Execute(u"INSERT INTO [Kept] VALUES (1)");
    CDatabaseServers::Get().KillServer(GetParam());

    EXPECT_FALSE(m_Database.CommitTrans());
    ExpectToWorkOnceTheServerIsBack();

    CGXDynamicRecordset set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT COUNT(*) FROM [Kept]"); });
    EXPECT_EQ(set.GetFieldData(0), u"0");
    EXPECT_TRUE(m_Database.BeginTrans());
}

#define UTILITY_ON_SERVERS(suite)                                                                  \
    INSTANTIATE_TEST_SUITE_P(Servers, suite,                                                       \
                             testing::Values(EServer::PostgreSQL, EServer::MariaDB),               \
                             [](const auto& source) { return std::string(NameOf(source.param)); })

UTILITY_ON_SERVERS(ConnectionLossTest);
UTILITY_ON_SERVERS(ServerLossTest);

} // namespace utility
