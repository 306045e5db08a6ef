#include "platform/db/GXDynamicRecordset.h"

#include "DatabaseFixture.h"

#include <fstream>
#include <thread>

namespace utility
{

/// A source that takes no more, because it is full or somebody else holds it.
class StorageTest : public CDatabaseTest
{
protected:
    std::string ReadCell(const CString& sql)
    {
        CGXDynamicRecordset set(&m_Database);
        Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, sql); });
        return ToUtf8(set.GetFieldData(0).View());
    }

    /// A table that has room for few rows; PostgreSQL has no such bound, so there a rule refuses a
    /// row with what the server says of a full disk.
    void MakeSmallTable()
    {
        switch (GetParam())
        {
        case EServer::SQLite:
            EXPECT_EQ(ReadCell(u"PRAGMA max_page_count = 40"), "40");
            Execute(u"CREATE TABLE [Small] ([Id] INTEGER, [Words] VARCHAR(600))");
            break;
        case EServer::PostgreSQL:
            Execute(u"CREATE TABLE [Small] ([Id] INTEGER, [Words] VARCHAR(600))");
            Execute(u"CREATE FUNCTION refuse() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN IF "
                    u"NEW.\"Id\" > 20 THEN RAISE 'could not extend file: No space left on device' "
                    u"USING ERRCODE = '53100'; END IF; RETURN NEW; END $$");
            Execute(u"CREATE TRIGGER bound BEFORE INSERT ON [Small] FOR EACH ROW EXECUTE FUNCTION "
                    u"refuse()");
            break;
        case EServer::MariaDB:
            Execute(u"SET max_heap_table_size = 16384");
            Execute(u"CREATE TABLE [Small] ([Id] INTEGER, [Words] VARCHAR(600)) ENGINE = MEMORY");
            break;
        }
    }
};

/// The rows of the small table.
class CSmallSet : public CRecordset
{
public:
    explicit CSmallSet(CDatabase* database) : CRecordset(database) { m_nFields = 2; }
    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[Id]", m_Id);
        RFX_Text(exchange, u"[Words]", m_Words, 600);
    }
    LONG m_Id = 0;
    CString m_Words;
};

TEST_P(StorageTest, FullOneRefusesARowAndKeepsThoseBefore)
{
    MakeSmallTable();
    CSmallSet set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Small]"); });
    LONG added = 0;

    const CRefusal refusal = RefusalOf(
        [&]
        {
            for (; added < 10000; ++added)
            {
                set.AddNew();
                set.m_Id = added + 1;
                set.m_Words = CString(u'x', 600);
                set.Update();
            }
        });
    set.Close();

    EXPECT_EQ(refusal.Failure, EDBFailure::Full) << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_EQ(refusal.Text.find("No room left: "), 0u) << refusal.Text;
    EXPECT_GT(added, 0);
    EXPECT_EQ(ReadCell(u"SELECT COUNT(*) FROM [Small]"), std::to_string(added));
}

TEST_P(StorageTest, RowThatAnotherHoldsIsBusyAndStaysAsItWas)
{
    Execute(u"CREATE TABLE [Held] ([i] INTEGER)");
    Execute(u"INSERT INTO [Held] VALUES (1)");
    CDatabase holder;
    Allowed([&] { holder.Open(nullptr, FALSE, FALSE, m_Connect); });
    ASSERT_TRUE(holder.BeginTrans());
    Allowed([&] { holder.ExecuteSQL(u"UPDATE [Held] SET [i] = 2"); });
    CDatabase second;
    const LPCWSTR patience = IsOn(EServer::SQLite) ? u";Timeout=50" : u"";
    Allowed([&] { second.Open(nullptr, FALSE, FALSE, m_Connect + patience); });
    if (!IsOn(EServer::SQLite))
        Allowed(
            [&]
            {
                second.ExecuteSQL(IsOn(EServer::PostgreSQL) ? u"SET lock_timeout = 50"
                                                            : u"SET innodb_lock_wait_timeout = 0");
            });

    const CRefusal refusal =
        RefusalOf([&] { second.ExecuteSQL(u"UPDATE [Held] SET [i] = [i] + 10"); });

    EXPECT_EQ(refusal.Failure, EDBFailure::Busy) << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_EQ(refusal.Text.find("Database busy: "), 0u) << refusal.Text;
    EXPECT_EQ(ReadCell(u"SELECT [i] FROM [Held]"), "1") << "until it is committed";
    EXPECT_TRUE(holder.CommitTrans());
    Allowed([&] { second.ExecuteSQL(u"UPDATE [Held] SET [i] = [i] + 10"); });
    EXPECT_EQ(ReadCell(u"SELECT [i] FROM [Held]"), "12");
}

UTILITY_ON_ALL_SERVERS(StorageTest);

/// Two writers of one row, each on a thread and a connection of its own.
class SecondWriterThreadsTest : public StorageTest
{
};

TEST_P(SecondWriterThreadsTest, GoesOnOnceTheFirstIsDone)
{
    Execute(u"CREATE TABLE [Held] ([i] INTEGER)");
    Execute(u"INSERT INTO [Held] VALUES (1)");
    ASSERT_TRUE(m_Database.BeginTrans());
    Execute(u"UPDATE [Held] SET [i] = 2");
    CDatabase second;
    Allowed([&] { second.Open(nullptr, FALSE, FALSE, m_Connect); });
    CRefusal refusal;
    {
        const std::jthread writer(
            [&] {
                refusal =
                    RefusalOf([&] { second.ExecuteSQL(u"UPDATE [Held] SET [i] = [i] + 10"); });
            });
        EXPECT_TRUE(m_Database.CommitTrans());
    }

    EXPECT_EQ(refusal.Code, 0) << refusal.Text << refusal.StateNativeOrigin;
    EXPECT_EQ(ReadCell(u"SELECT [i] FROM [Held]"), "12");
}

UTILITY_ON_ALL_SERVERS(SecondWriterThreadsTest);

// PostgreSQL alone knows a statement's time-out.
TEST(StatementTimeoutTest, IsToldAsBusyAndNotAsStopped)
{
    CDatabase database;
    database.SetQueryTimeout(1);
    Allowed(
        [&] {
            database.Open(nullptr, FALSE, FALSE,
                          CDatabaseServers::Get().MakeSource(EServer::PostgreSQL));
        });

    const CRefusal refusal = RefusalOf([&] { database.ExecuteSQL(u"SELECT pg_sleep(60)"); });

    EXPECT_EQ(refusal.Failure, EDBFailure::Busy) << refusal.Text << refusal.StateNativeOrigin;
}

TEST(DamagedFileTest, FileThatIsNoDatabaseIsToldAndLeftAlone)
{
    const std::filesystem::path path = CDatabaseServers::Get().GetFolder() / "words.db";
    const std::string words(4096, 'w');
    std::ofstream(path) << words;
    CDatabase database;
    Allowed(
        [&] {
            database.Open(nullptr, FALSE, FALSE,
                          u"DRIVER={SQLite3};Database=" + FromUtf8(path.string()));
        });

    const CRefusal refusal =
        RefusalOf([&] { database.ExecuteSQL(u"CREATE TABLE [Made] ([i] INTEGER)"); });

    EXPECT_NE(refusal.Text.find("file is not a database"), std::string::npos) << refusal.Text;
    database.Close();
    std::ifstream file(path);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), words);
}

} // namespace utility
