#include "platform/base/Encoding.h"

#include "support/DatabaseServers.h"
#include "tools/ToolProcess.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace utility;
using testing::HasSubstr;

namespace
{

constexpr char PARTS[] = R"sql(
CREATE TABLE Parts (Name VARCHAR(40), Stock INTEGER, Price DECIMAL(12,3), Made TIMESTAMP);
INSERT INTO Parts VALUES ('R 10', 5, 0.125, '2024-01-31 12:00:00.5'), ('漢', NULL, NULL, NULL);
CREATE TABLE [two words] (Id INTEGER);
CREATE VIEW Names AS SELECT Name FROM Parts;
)sql";

TEST(DbCopyTest, AllTablesGoThroughEveryServerAndComeBackTheSame)
{
    const CToolSandbox tool;
    tool.RunLine("sqlite3 parts.db", PARTS);
    std::string from = "parts.db";
    for (const EServer server : {EServer::PostgreSQL, EServer::MariaDB, EServer::SQLite})
    {
        SCOPED_TRACE(NameOf(server));
        const std::string to = ToUtf8(CDatabaseServers::Get().MakeSource(server).View());

        const CToolRun copied = tool.Run({"db", "copy", from, to, "--json"});
        const CToolRun again = tool.Run({"db", "copy", from, to});

        EXPECT_EQ(copied.m_Errors, "");
        EXPECT_EQ(copied.m_ExitCode, 0);
        EXPECT_THAT(copied.m_Output, HasSubstr("[{\"table\": \"Parts\", \"state\": \"copied\", "
                                               "\"rows\": 2, \"checksum\": \""));
        EXPECT_THAT(again.m_Output, HasSubstr("Parts: 2 rows stand already, checksum "));
        EXPECT_THAT(again.m_Output, HasSubstr("two words: 0 rows"));
        EXPECT_THAT(again.m_Output, HasSubstr("\n2 tables, "));
        from = to;
    }
    tool.Run({"db", "copy", from, "back.db"});
    EXPECT_EQ(tool.RunLine("sqlite3 back.db 'SELECT * FROM Parts'").m_Output,
              "R 10|5|0.125|2024-01-31 12:00:00.5\n漢|||\n");
}

TEST(DbCopyTest, WhatCannotBeCopiedIsNamed)
{
    const CToolSandbox tool;
    tool.RunLine("sqlite3 parts.db",
                 "CREATE TABLE Good (A INTEGER); CREATE TABLE Odd (A INTEGER, B INTEGER); "
                 "INSERT INTO Odd VALUES (1, 2), (3, 'n/a'); CREATE TABLE Other (A INTEGER);"
                 "INSERT INTO Other VALUES (5)");
    tool.RunLine("sqlite3 to.db", "CREATE TABLE Other (A INTEGER); INSERT INTO Other VALUES (6)");
    const struct
    {
        std::vector<std::string> m_Words;
        const char* m_Errors;
    } cases[] = {
        {{"parts.db", "to.db"},
         "utility: table 'Odd': row 2, column 'B': the value is a text, which does not belong "
         "there; nothing of the table was copied\n"},
        {{"parts.db", "to.db", "Other"},
         "utility: table 'Other': the target's table has rows already, and not the same; nothing "
         "of the table was copied\n"},
        {{"parts.db", "to.db", "Absent"}, "utility: table 'Absent': Table not found: "},
        {{"absent.db", "to.db"}, "utility: absent.db: No such file or directory\n"},
        {{"parts.db", "absent/to.db"}, "utility: absent/to.db: No such file or directory\n"},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Errors);
        std::vector<std::string> words = {"db", "copy"};
        words.insert(words.end(), row.m_Words.begin(), row.m_Words.end());

        const CToolRun run = tool.Run(words);

        EXPECT_EQ(run.m_ExitCode, 3);
        EXPECT_TRUE(run.m_Errors.starts_with(row.m_Errors)) << run.m_Errors;
    }
    EXPECT_EQ(tool.Run({"db", "tables", "--from", "to.db"}).m_Output, "Good\nOther\n");
}

/// Starts a copy and sends it a signal as soon as it has begun to write; its exit status.
int SignalCopy(const CTemporaryFolder& folder, int signal)
{
    const std::string work = folder.GetNativePath().string();
    const pid_t tool = fork();
    if (tool == 0)
    {
        if (chdir(work.c_str()) == 0 && std::freopen("errors", "w", stderr) &&
            std::freopen("output", "w", stdout))
            execl(UTILITY_TOOL, "utility", "db", "copy", "parts.db", "to.db", nullptr);
        _exit(127);
    }
    const std::filesystem::path log = folder.GetNativePath() / "to.db-wal";
    int status = 0;
    while (waitpid(tool, &status, WNOHANG) == 0)
    {
        std::error_code failure;
        const auto size = std::filesystem::file_size(log, failure);
        if (failure || size == 0)
            continue; // its table is not made yet
        kill(tool, signal);
        waitpid(tool, &status, 0);
        break;
    }
    return status;
}

TEST(DbCopyTest, CopyThatIsStoppedIsTakenUpByTheSameWords)
{
    for (const int signal : {SIGINT, SIGKILL})
    {
        SCOPED_TRACE(signal);
        const CToolSandbox tool;
        tool.RunLine(
            "sqlite3 parts.db",
            "CREATE TABLE Parts (A INTEGER, B TEXT); INSERT INTO Parts WITH RECURSIVE n(i) "
            "AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) SELECT i, "
            "'a part' FROM n");

        const int status = SignalCopy(tool.GetFolder(), signal);

        if (signal == SIGINT)
        {
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 3) << status;
            EXPECT_EQ(tool.GetFolder().Read(u"errors"),
                      "utility: table 'Parts': interrupted; nothing of the table was copied\n");
        }
        const std::string left =
            tool.RunLine("sqlite3 to.db 'SELECT count(*) FROM Parts' 2>/dev/null").m_Output;
        EXPECT_TRUE(left.empty() || left == "0\n") << left;
        EXPECT_EQ(tool.Run({"db", "copy", "parts.db", "to.db"}).m_ExitCode, 0);
        EXPECT_EQ(tool.RunLine("sqlite3 to.db 'SELECT count(*) FROM Parts'").m_Output, "100000\n");
    }
}

} // namespace
