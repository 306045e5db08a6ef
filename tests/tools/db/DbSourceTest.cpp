#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

TEST(DbSourceTest, EachThingThatIsNotThereHasItsOwnWords)
{
    const CToolSandbox tool;
    tool.GetFolder().MakeFile(u"words.db", "this is no database");
    tool.RunLine("sqlite3 parts.db 'CREATE TABLE Parts (Name TEXT)'");
    tool.RunLine("mkdir folder.db");
    const std::string socket = tool.GetFolder().GetNativePath().string();
    const struct
    {
        std::string m_Source;
        std::string m_Words; // behind the source, passwords masked
    } cases[] = {
        {"absent.db", "absent.db: No such file or directory"},
        {"", "'': No such file or directory"},
        {"folder.db", "folder.db: is a folder"},
        {"absent/parts.db", "absent/parts.db: No such file or directory"},
        {"words.db", "words.db: file is not a database"},
        {"parts.db", "parts.db: Table not found: "},
        {"DRIVER={MariaDB Unicode};SERVER=no host;PWD=secret",
         "DRIVER={MariaDB Unicode};SERVER=no host;PWD=***: Database not reached: Unknown server "
         "host 'no host'"},
        {"DRIVER=Nobody;PWD=secret", "DRIVER=Nobody;PWD=***: Driver or data source not found: "},
        {"DSN=Nobody;Password={se;cret}",
         "DSN=Nobody;Password=***: Driver or data source not found: "},
        {"DRIVER={PostgreSQL Unicode};Server=" + socket + ";Database=x;PWD=secret",
         "DRIVER={PostgreSQL Unicode};Server=" + socket +
             ";Database=x;PWD=***: Database not reached: "},
        {"DRIVER={MariaDB Unicode};SOCKET=" + socket + "/absent;UID=x;PWD=secret",
         "DRIVER={MariaDB Unicode};SOCKET=" + socket +
             "/absent;UID=x;PWD=***: Database not reached: "},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Source);

        const CToolRun run = tool.Run({"db", "query", "Absent", "--from", row.m_Source});

        EXPECT_EQ(run.m_ExitCode, 3);
        EXPECT_NE(run.m_Errors.find("utility: " + row.m_Words), std::string::npos) << run.m_Errors;
        EXPECT_EQ(run.m_Errors.find("cret"), std::string::npos);
    }
    EXPECT_EQ(tool.GetFolder().List(),
              (std::vector<std::string>{"folder.db/", "parts.db", "words.db"}));
}

TEST(DbSourceTest, FileThatCannotBeMadeIsToldInTheSystemsWords)
{
    const CToolSandbox tool;
    tool.RunLine("mkdir folder.db");
    const struct
    {
        const char* m_Source;
        const char* m_Words;
    } cases[] = {{"absent/parts.db", "utility: absent/parts.db: No such file or directory\n"},
                 {"folder.db", "utility: folder.db: is a folder\n"}};
    for (const auto& row : cases)
    {
        const CToolRun run = tool.Run({"db", "make-passives", "--into", row.m_Source});

        EXPECT_EQ(run.m_ExitCode, 3);
        EXPECT_EQ(run.m_Errors, row.m_Words);
    }
}

TEST(DbSourceTest, ListsTablesViewsAndFields)
{
    const CToolSandbox tool;
    tool.RunLine("sqlite3 parts.db",
                 "CREATE TABLE [my parts] (Name VARCHAR(40), Stock INTEGER, Price DOUBLE);"
                 "CREATE VIEW Names AS SELECT Name FROM [my parts];");

    EXPECT_EQ(tool.Run({"db", "tables"}).m_Output, "Names\nmy parts\n");
    EXPECT_EQ(tool.Run({"db", "tables", "--json", "--from", "parts.db"}).m_Output,
              "[\"Names\", \"my parts\"]\n");
    const CToolRun fields = tool.Run({"db", "fields", "my parts", "--json"});
    EXPECT_EQ(fields.m_Output.find("[{\"name\": \"Name\", \"type\": \"text\", \"length\": 40}, "),
              0u)
        << fields.m_Output;
    EXPECT_EQ(tool.RunLine("utility db fields 'my parts' | tail -2 | cut -c1-14").m_Output,
              "Stock  integer\nPrice  real   \n");
}

} // namespace
