#include "database/DBADatabase.h"
#include "database/DBARecordset.h"
#include "database/DatabaseFixture.h"
#include "database/TraceLog.h"
#include "frame/AppError.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

constexpr const char16_t* ALL_CONTEXTS =
    u"DBADatabase, DBADatabaseDetails, ODBCRecordset, ODBCRecordsetDetails";

/// A password that is asked for where the source knows passwords, in each form in which a connect
/// string may hold it.
class DBADatabasePasswordTest : public CSourceTest
{
protected:
    /// The connect string of a user with GUARDED_PASSWORD, without the password.
    CString MakeGuardedConnect()
    {
        switch (GetParam())
        {
        case EServer::SQLite:
            return m_Connect;
        case EServer::PostgreSQL:
            return m_Connect + u";UID=" + GUARDED_ROLE;
        case EServer::MariaDB:
            Execute(CString(u"CREATE OR REPLACE USER ") + GUARDED_ROLE +
                    u"@localhost IDENTIFIED BY '" + GUARDED_PASSWORD + u"'");
            Execute(CString(u"GRANT ALL ON *.* TO ") + GUARDED_ROLE + u"@localhost");
            return ReplaceUser();
        }
        return {};
    }

    CString ReplaceUser() const
    {
        CString connect = m_Connect;
        connect.Replace(u"UID=root", CString(u"UID=") + GUARDED_ROLE);
        return connect;
    }

    /// Whatever a user or a file may get to see of a connection.
    static std::string EverythingSaid(const CTraceLog& log, const CDBADatabase& database,
                                      const std::string& refusals)
    {
        return log.Read() + ToUtf8(database.GetErrorDetails().View()) +
               ToUtf8(CAppError::GetLastErrorString().View()) + refusals;
    }
};

TEST_P(DBADatabasePasswordTest, IsNowhereToBeRead)
{
    const CString guarded = MakeGuardedConnect();
    const struct
    {
        const char* m_Name;
        CString m_Key;
        bool m_IsRight;
    } rows[] = {{"right", CString(u";PWD=") + GUARDED_PASSWORD, true},
                {"right, in braces", CString(u";PWD={") + GUARDED_PASSWORD + u"}", true},
                {"wrong", u";PWD=wrong one", false},
                {"wrong, in braces", u";PWD={wr}}ong ;one}", false},
                {"wrong, by the long name", u";PWD=;PASSWORD=wrong one", false}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        const CTraceLog log(ALL_CONTEXTS);
        CDBADatabase database;
        const bool opened = database.Open(nullptr, FALSE, FALSE, guarded + row.m_Key) != 0;
        EXPECT_EQ(opened, row.m_IsRight || GetParam() == EServer::SQLite);

        std::string refusals;
        if (opened)
        {
            CStringArray tables;
            database.ReadTableNames(tables);
            database.DeleteTable(u"Absent");
            refusals = RefusalOf([&] { database.ExecuteSQL(u"SELEC 1"); });
            EXPECT_NE(refusals, "");
        }
        const std::string said = EverythingSaid(log, database, refusals);
        EXPECT_NE(said.find("***"), std::string::npos) << said;
        for (const char* const secret : {"right one", "wrong one", "ong ;one"})
            EXPECT_EQ(said.find(secret), std::string::npos) << said;
    }
}

UTILITY_ON_ALL_SOURCES(DBADatabasePasswordTest);

} // namespace
} // namespace utility
