#include "platform/base/Encoding.h"
#include "platform/db/Database.h"

#include "support/DatabaseServers.h"
#include "tools/ToolProcess.h"

#include <gmock/gmock.h>

using namespace utility;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{

TEST(DbCheckTest, OddCellsAreCountedByColumnWithTheirFirstRow)
{
    const CToolSandbox tool;
    tool.RunLine(
        "sqlite3 odd.db",
        "CREATE TABLE Odd (A INTEGER, B TEXT, C TIMESTAMP, D DOUBLE, E DECIMAL(5,2));"
        "INSERT INTO Odd VALUES (1, 'x', '2024-01-01', 1.5, 2.25),"
        "('n/a', CAST(x'41FF' AS TEXT), 'junk', 'y', 3),"
        "('n/a', 'a' || char(0), '12024-01-01', 9e999, 1e-20), (NULL, NULL, NULL, NULL, NULL),"
        "(9000000000, x'00', 17, 2, 'none');"
        "CREATE TABLE Good (A INTEGER); INSERT INTO Good VALUES (1)");

    const CToolRun odd = tool.Run({"db", "check", "odd.db"});
    EXPECT_EQ(odd.m_ExitCode, 1);
    for (const char* const line :
         {"odd       Odd.A: 2 cells, the first in row 2, of which each is a text, which does not",
          "odd       Odd.A: 1 cell, the first in row 5, which is a whole number beyond",
          "odd       Odd.B: 1 cell, the first in row 2, which is no valid UTF-8\n",
          "odd       Odd.B: 1 cell, the first in row 3, which has a NUL in its text\n",
          "odd       Odd.B: 1 cell, the first in row 5, which is a row of bytes",
          "odd       Odd.C: 1 cell, the first in row 2, which is a text that cannot be read",
          "odd       Odd.C: 1 cell, the first in row 3, which is a date outside the years",
          "odd       Odd.C: 1 cell, the first in row 5, which is a whole number, which does",
          "odd       Odd.D: 1 cell, the first in row 2, which is a text",
          "odd       Odd.D: 1 cell, the first in row 3, which is infinite",
          "odd       Odd.E: 1 cell, the first in row 5, which is a text",
          "table     Odd: 5 rows, "})
        EXPECT_THAT(odd.m_Output, HasSubstr(line));
    EXPECT_THAT(odd.m_Output, Not(HasSubstr("Good.")));

    const CToolRun good = tool.Run({"db", "check", "odd.db", "Good", "--json"});
    EXPECT_EQ(good.m_ExitCode, 0);
    EXPECT_THAT(good.m_Output, HasSubstr("\"tables\": [{\"table\": \"Good\", \"rows\": 1, "));
    EXPECT_THAT(good.m_Output, HasSubstr("\"odd\": []"));
    EXPECT_EQ(tool.Run({"db", "check", "odd.db", "Absent"}).m_ExitCode, 3);
}

TEST(DbCheckTest, EachServerTellsWhatItIsAndItsOwnOddValues)
{
    const struct
    {
        EServer m_Server;
        const char16_t* m_Rows;
        const char* m_Database;
        const char* m_Note;
        const char* m_Odd;
    } cases[] = {
        {EServer::SQLite, u"(1, '2024-01-31')", "database  SQLite 3.",
         "dates are texts in the file", nullptr},
        {EServer::PostgreSQL, u"(1, '2024-01-31'), (2, 'infinity')", "database  PostgreSQL ",
         "100 rows a fetch", "when: 1 cell, the first in row 2, which is infinite"},
        {EServer::MariaDB, u"(1, '2024-01-31'), (2, '0000-00-00')", "database  MariaDB ",
         "the driver takes the whole result before it gives the first row",
         "when: 1 cell, the first in row 2, which is a date with a year, month or day of 0"},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(NameOf(row.m_Server));
        const CString source = CDatabaseServers::Get().MakeSource(row.m_Server);
        CDatabase database;
        database.Open(nullptr, FALSE, FALSE, source);
        if (row.m_Server == EServer::MariaDB)
            database.ExecuteSQL(u"SET sql_mode=''");
        database.ExecuteSQL(u"CREATE TABLE [t] ([a] INTEGER, [when] DATE)");
        database.ExecuteSQL(CString(u"INSERT INTO [t] VALUES ") + row.m_Rows);

        const CToolRun run = CToolSandbox().Run({"db", "check", ToUtf8(source.View())});

        EXPECT_EQ(run.m_ExitCode, row.m_Odd ? 1 : 0) << run.m_Errors;
        EXPECT_THAT(run.m_Output, StartsWith(row.m_Database));
        EXPECT_THAT(run.m_Output, HasSubstr(row.m_Note));
        EXPECT_THAT(run.m_Output, HasSubstr(row.m_Odd ? row.m_Odd : "table     t: 1 rows"));
    }
}

} // namespace
