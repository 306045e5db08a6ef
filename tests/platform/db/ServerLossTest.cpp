#include "platform/db/GXDynamicRecordset.h"

#include "DatabaseFixture.h"
#include "LongQueries.h"

#include <chrono>
#include <thread>

namespace utility
{

namespace
{

constexpr auto LONGEST_WAIT = std::chrono::seconds(20); // the time-outs are 15

/// The rows that a lost server may have kept.
class CKeptSet : public CRecordset
{
public:
    explicit CKeptSet(CDatabase* database) : CRecordset(database) { m_nFields = 1; }
    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[i]", m_Number);
    }
    LONG m_Number = 0;
};

} // namespace

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

    CString CountKept()
    {
        CGXDynamicRecordset set(&m_Database);
        Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT COUNT(*) FROM [Kept]"); });
        return set.GetFieldData(0);
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

    EXPECT_EQ(CountKept(), u"0");
    EXPECT_TRUE(m_Database.BeginTrans());
}

TEST_P(ServerLossTest, WriteUnderWayLeavesNothing)
{
    Execute(u"CREATE TABLE [Kept] ([i] INTEGER)");
    CRefusal refusal;
    {
        const std::jthread killer([this] { Allowed([this] { KillServerInQuery(); }); });
        refusal = RefusalOf([&] { m_Database.ExecuteSQL(LongWrite(GetParam())); });
    }
    EXPECT_EQ(refusal.Failure, EDBFailure::NoServer) << refusal.Text << refusal.StateNativeOrigin;
    ExpectToWorkOnceTheServerIsBack();
    EXPECT_EQ(CountKept(), u"0");
}

TEST_P(ServerLossTest, RowBeingAddedIsToldAndNothingOfItsTransactionStays)
{
    Execute(u"CREATE TABLE [Kept] ([i] INTEGER)");
    CKeptSet set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Kept]"); });
    ASSERT_TRUE(m_Database.BeginTrans());
    Allowed(
        [&]
        {
            set.AddNew();
            set.m_Number = 1;
            EXPECT_TRUE(set.Update());
            set.AddNew();
            set.m_Number = 2;
        });
    CDatabaseServers::Get().KillServer(GetParam());

    const CRefusal refusal = RefusalOf([&] { set.Update(); });

    EXPECT_EQ(refusal.Failure, EDBFailure::NoServer) << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_EQ(set.m_Number, 2) << "what was to be added is still there";
    EXPECT_FALSE(m_Database.CommitTrans());
    set.Close();
    ExpectToWorkOnceTheServerIsBack();
    EXPECT_EQ(CountKept(), u"0");
}

UTILITY_ON_SERVERS(ServerLossTest);

} // namespace utility
