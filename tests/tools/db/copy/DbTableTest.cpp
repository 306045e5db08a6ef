#include "platform/base/Encoding.h"

#include "support/DatabaseServers.h"
#include "support/TerminalProcess.h"
#include "tools/ToolProcess.h"

#include <gmock/gmock.h>

using namespace utility;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

TEST(DbTableTest, TablesAreMadeAndDeletedOnEverySource)
{
    const CToolSandbox tool;
    const std::string name = "my [parts]";
    for (const EServer server : ALL_SERVERS)
    {
        SCOPED_TRACE(NameOf(server));
        const std::string source = ToUtf8(CDatabaseServers::Get().MakeSource(server).View());
        const std::vector<std::string> create = {"db",
                                                 "create",
                                                 name,
                                                 "--into",
                                                 source,
                                                 "Name",
                                                 "Value:text(40)",
                                                 "Words:TEXT",
                                                 "Stock:integer",
                                                 "Price:decimal(12,3)",
                                                 "Made:timestamp",
                                                 "a \"b\" µ:real",
                                                 "Id2:bigint",
                                                 "Yes:boolean",
                                                 "Bytes:binary",
                                                 "Day:date",
                                                 "Hour:time",
                                                 "Few:smallint"};

        const CToolRun made = tool.Run(create);
        EXPECT_EQ(made.m_Errors, "");
        EXPECT_EQ(made.m_Output, "table 'my [parts]' is made, with ID and 13 columns\n");
        EXPECT_EQ(tool.Run({"db", "tables", "--from", source}).m_Output, name + "\n");

        const CToolRun again = tool.Run(create);
        EXPECT_EQ(again.m_ExitCode, 1);
        EXPECT_EQ(again.m_Errors, "utility: table 'my [parts]' stands already\n");

        EXPECT_EQ(tool.Run({"db", "drop", name, "--from", source}).m_ExitCode, 1)
            << "nobody said yes";
        const CToolRun dropped = tool.Run({"db", "drop", name, "--from", source, "--yes"});
        EXPECT_EQ(dropped.m_Output, "table 'my [parts]' is deleted\n");
        EXPECT_EQ(tool.Run({"db", "tables", "--from", source}).m_Output, "");
        const CToolRun absent = tool.Run({"db", "drop", name, "--from", source, "--yes"});
        EXPECT_EQ(absent.m_ExitCode, 1);
        EXPECT_EQ(absent.m_Errors, "utility: there is no table 'my [parts]'\n");
    }
}

TEST(DbTableTest, ColumnThatIsRefusedLeavesNoTable)
{
    const CToolSandbox tool;
    for (const char* const word :
         {"", ":text", "a:", "a:number", "a:text()", "a:text(0)", "a:text(4", "a:text(4,1)",
          "a:decimal(3,4)", "a:integer(4)", "a:decimal(12, 3)"})
    {
        SCOPED_TRACE(word);

        const CToolRun run = tool.Run({"db", "create", "Parts", "Name", word});

        EXPECT_EQ(run.m_ExitCode, 2);
        EXPECT_THAT(run.m_Errors,
                    StartsWith("utility: '" + std::string(word) + "' is no column: "));
    }
    EXPECT_EQ(tool.GetFolder().List(), std::vector<std::string>());

    for (const EServer server : ALL_SERVERS)
    {
        const std::string source = ToUtf8(CDatabaseServers::Get().MakeSource(server).View());
        const CToolRun twice = tool.Run({"db", "create", "Parts", "A", "B", "A", "--into", source});
        EXPECT_EQ(twice.m_ExitCode, 3);
        EXPECT_NE(twice.m_Errors, "");
        EXPECT_EQ(tool.Run({"db", "tables", "--from", source}).m_Output, "");
    }
}

TEST(DbTableTest, TerminalIsAskedBeforeATableGoes)
{
    const CToolSandbox tool;
    tool.RunLine(
        "sqlite3 parts.db 'CREATE TABLE Parts (A); CREATE VIEW Names AS SELECT A FROM Parts'");
    const std::string file = (tool.GetFolder().GetNativePath() / "parts.db").string();
    const auto drop = [&](const char* table, std::string_view keys)
    {
        return RunOnTerminal(
            std::vector<std::string>{UTILITY_TOOL, "db", "drop", table, "--from", file}, keys);
    };

    const CTerminalRun kept = drop("Parts", "n\n");
    EXPECT_EQ(kept.m_ExitCode, 1);
    EXPECT_THAT(kept.m_Screen, HasSubstr("Delete table 'Parts' with all its rows from " + file));
    const CTerminalRun view = drop("Names", "y\n");
    EXPECT_EQ(view.m_ExitCode, 3);
    EXPECT_THAT(view.m_Screen, HasSubstr("use DROP VIEW"));
    EXPECT_EQ(drop("Parts", "y\n").m_ExitCode, 0);
    EXPECT_EQ(tool.RunLine("sqlite3 parts.db .tables 2>&1").m_Output.find("Parts"),
              std::string::npos);
}

} // namespace
