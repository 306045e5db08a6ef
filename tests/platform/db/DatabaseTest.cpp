#include "platform/db/ConnectString.h"
#include "platform/db/GXDynamicRecordset.h"
#include "platform/db/OdbcCalls.h"

#include "DatabaseFixture.h"

#include <set>

namespace utility
{

class DatabaseTest : public CDatabaseTest
{
protected:
    /// As the catalogue lists them.
    std::set<std::string> ListTables()
    {
        std::set<std::string> names;
        HSTMT statement = nullptr;
        EXPECT_EQ(SQLAllocStmt(m_Database.m_hdbc, &statement), SQL_SUCCESS);
        EXPECT_TRUE(
            m_Database.CheckHstmt(SQLTablesW(statement, nullptr, SQL_NTS, nullptr, SQL_NTS, nullptr,
                                             SQL_NTS, u"'TABLE', 'VIEW', 'SYNONYM'", SQL_NTS),
                                  statement));
        while (SQLFetch(statement) == SQL_SUCCESS)
        {
            char name[256] = {};
            std::int64_t length = 0;
            EXPECT_EQ(SQLGetData(statement, 3, SQL_C_CHAR, name, sizeof(name), &length),
                      SQL_SUCCESS);
            names.insert(name);
        }
        EXPECT_EQ(SQLFreeStmt(statement, SQL_CLOSE), SQL_SUCCESS);
        EXPECT_EQ(SQLFreeStmt(statement, SQL_DROP), SQL_SUCCESS);
        return names;
    }
};

TEST_P(DatabaseTest, ConnectStringOpensAgainAndTellsTheDriver)
{
    CDatabase again;
    Allowed([&] { again.Open(nullptr, FALSE, FALSE, u"ODBC;DSN=;" + m_Connect); });
    EXPECT_EQ(again.GetConnect(), CConnectString(m_Connect.View()).Format());
    Execute(u"CREATE TABLE [Here] ([i] INTEGER)");
    Allowed([&] { again.ExecuteSQL(u"INSERT INTO [Here] VALUES (1)"); });

    EXPECT_EQ(RefusalOf([&] { again.Open(nullptr, FALSE, FALSE, m_Connect); }).State, "08002");
    EXPECT_TRUE(again.IsOpen());
    again.Close();
    EXPECT_EQ(RefusalOf([&] { again.Open(nullptr, TRUE, FALSE, m_Connect); }).State, "HYC00");
    EXPECT_EQ(RefusalOf([&] { again.Open(nullptr); }).State, "IM002");
    EXPECT_EQ(RefusalOf([&] { again.Open(nullptr, FALSE, FALSE, u"DSN=;"); }).Failure,
              EDBFailure::NoDriver);
    EXPECT_EQ(RefusalOf([&] { again.ExecuteSQL(u"SELECT 1"); }).State, "08003");
    EXPECT_FALSE(again.BeginTrans());
}

TEST_P(DatabaseTest, OddNamesAreMadeListedAndRead)
{
    const LPCWSTR names[] = {u"two words", u"6\" reel", u"back`tick",
                             u"a]]b",      u"v1.2",     u"\u2126 table"};
    for (const LPCWSTR name : names)
        Execute(CString(u"CREATE TABLE [") + name + u"] ([col " + name + u"] INTEGER)");
    Execute(u"CREATE VIEW [a view] AS SELECT * FROM [two words]");

    const std::set<std::string> listed = ListTables();
    EXPECT_TRUE(listed.contains("a view"));
    for (const LPCWSTR name : names)
    {
        CString plain = name;
        plain.Replace(u"]]", u"]");
        SCOPED_TRACE(ToUtf8(plain.View()));
        EXPECT_TRUE(listed.contains(ToUtf8(plain.View())));
        Execute(CString(u"INSERT INTO [") + name + u"] VALUES (42)");
        CGXDynamicRecordset set(&m_Database);
        Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, CString(u"[") + name + u"]"); });
        ASSERT_EQ(set.GetFieldCount(), 1);
        EXPECT_EQ(set.GetFieldInfo(0).m_strName, u"[col " + plain + u"]");
        EXPECT_EQ(set.GetFieldData(0), u"42");
    }
    if (!IsOn(EServer::PostgreSQL)) // which lists every schema
    {
        EXPECT_EQ(listed.size(), std::size(names) + 1);
    }
}

TEST_P(DatabaseTest, FailuresAreToldApart)
{
    struct CCase
    {
        const char* Name;
        LPCWSTR Sql;
        EDBFailure Failure;
    };
    Execute(u"CREATE TABLE [Once] ([Id] INTEGER NOT NULL PRIMARY KEY)");
    Execute(u"INSERT INTO [Once] VALUES (1)");
    for (const CCase& item :
         {CCase{"no table", u"SELECT * FROM [NoSuch]", EDBFailure::NoTable},
          CCase{"no column", u"SELECT [x] FROM [Once] WHERE [x] = 1", EDBFailure::NoColumn},
          CCase{"key stands", u"INSERT INTO [Once] VALUES (1)", EDBFailure::Duplicate},
          CCase{"no SQL", u"SELEC 1", EDBFailure::Other}})
    {
        SCOPED_TRACE(item.Name);
        const CRefusal refusal = RefusalOf([&] { m_Database.ExecuteSQL(item.Sql); });
        EXPECT_EQ(refusal.Code, SQL_ERROR);
        EXPECT_EQ(refusal.Failure, item.Failure) << refusal.Text << refusal.StateNativeOrigin;
        EXPECT_EQ(refusal.Text.find('['), std::string::npos) << refusal.Text;
    }
    if (IsOn(EServer::MariaDB))
    {
        const CRefusal refusal = RefusalOf([&] { m_Database.ExecuteSQL(u"DROP TABLE [NoSuch]"); });
        EXPECT_EQ(refusal.StateNativeOrigin.substr(0, 36), "State:42S02,Native:1051,Origin:[ma-3")
            << refusal.Text;
    }
}

TEST_P(DatabaseTest, TransactionsKeepOrUndo)
{
    Execute(u"CREATE TABLE [Log] ([Id] INTEGER)");
    ASSERT_TRUE(m_Database.CanTransact());
    for (const bool keeps : {true, false})
    {
        ASSERT_TRUE(m_Database.BeginTrans());
        EXPECT_FALSE(m_Database.BeginTrans()) << "none within another";
        Execute(u"INSERT INTO [Log] VALUES (1)");
        EXPECT_EQ(m_Database.GetRowsAffected(), 1);
        EXPECT_TRUE(keeps ? m_Database.CommitTrans() : m_Database.Rollback());
    }
    EXPECT_FALSE(m_Database.CommitTrans());
    CGXDynamicRecordset set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT COUNT(*) FROM [Log]"); });
    EXPECT_EQ(set.GetFieldData(0), u"1");
}

UTILITY_ON_ALL_SERVERS(DatabaseTest);

TEST(ConnectRefusalTest, EachReasonHasItsOwnKind)
{
    CDatabaseServers& servers = CDatabaseServers::Get();
    const CString postgres = servers.GetServerConnect(EServer::PostgreSQL);
    const CString maria = servers.GetServerConnect(EServer::MariaDB);
    struct CCase
    {
        const char* Name;
        CString Connect;
        EDBFailure Failure;
    };
    const CCase cases[] = {
        {"driver", u"DRIVER={No Such};", EDBFailure::NoDriver},
        {"source", u"DSN=nosuch", EDBFailure::NoDriver},
        {"SQLite folder", u"DRIVER={SQLite3};Database=/nosuch/x.db", EDBFailure::NoServer},
        {"PostgreSQL server",
         u"DRIVER={PostgreSQL Unicode};Servername=/nosuch;Database=d;Username=u",
         EDBFailure::NoServer},
        {"PostgreSQL port that refuses",
         u"DRIVER={PostgreSQL Unicode};Servername=127.0.0.1;Port=1;Database=d;Username=u",
         EDBFailure::NoServer},
        {"MariaDB port that refuses",
         u"DRIVER={MariaDB Unicode};SERVER=127.0.0.1;PORT=1;TCPIP=1;UID=u", EDBFailure::NoServer},
        {"PostgreSQL database", postgres + u"Database=nosuch", EDBFailure::NoServer},
        {"PostgreSQL password",
         postgres + u"Database=postgres;Username=" + GUARDED_ROLE + u";PWD=secret",
         EDBFailure::NoAccess},
        {"PostgreSQL without password", postgres + u"Database=postgres;Username=" + GUARDED_ROLE,
         EDBFailure::NoAccess},
        {"PostgreSQL role", postgres + u"Database=postgres;Username=nobody", EDBFailure::NoAccess},
        {"MariaDB server", u"DRIVER={MariaDB Unicode};SOCKET=/nosuch;UID=u", EDBFailure::NoServer},
        {"MariaDB database", maria + u"DATABASE=nosuch", EDBFailure::NoServer},
        {"MariaDB password", maria + u"PWD=secret;", EDBFailure::NoAccess},
    };
    for (const CCase& item : cases)
    {
        SCOPED_TRACE(item.Name);
        CDatabase database;
        const CRefusal refusal =
            RefusalOf([&] { database.Open(nullptr, FALSE, FALSE, item.Connect); });
        EXPECT_EQ(refusal.Failure, item.Failure) << refusal.Text << refusal.StateNativeOrigin;
        EXPECT_FALSE(database.IsOpen());
        EXPECT_EQ(refusal.Text.find("secret"), std::string::npos);
    }
}

TEST(ConnectRefusalTest, GuardedRoleComesInWithItsPasswordAlone)
{
    const CString guarded = CDatabaseServers::Get().GetServerConnect(EServer::PostgreSQL) +
                            u"Database=postgres;Username=" + GUARDED_ROLE;
    CDatabase database;
    Allowed([&] { database.Open(nullptr, FALSE, FALSE, guarded + u";PWD=" + GUARDED_PASSWORD); });
    database.Close();

    const CRefusal refusal =
        RefusalOf([&] { database.Open(nullptr, FALSE, FALSE, guarded + u";PWD=secret"); });

    EXPECT_EQ(refusal.Text.find("Access refused: "), 0u) << refusal.Text;
    EXPECT_NE(refusal.Text.find("password authentication failed for user \"guarded\""),
              std::string::npos)
        << refusal.Text;
}

TEST(ConnectRefusalTest, NamedSourceTellsItsDriver)
{
    CDatabaseServers::Get().GetServerConnect(EServer::PostgreSQL);
    CDatabase database;
    Allowed([&] { database.Open(u"served_stock"); });
    EXPECT_EQ(database.GetConnect(), u"DSN=served_stock;DRIVER={PostgreSQL Unicode}");
    CDatabase again;
    Allowed([&] { again.Open(nullptr, FALSE, FALSE, database.GetConnect()); });
}

} // namespace utility
