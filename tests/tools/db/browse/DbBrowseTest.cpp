#include "platform/base/Encoding.h"
#include "platform/db/Database.h"

#include "support/DatabaseServers.h"
#include "support/TerminalProcess.h"
#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

constexpr char PARTS[] = R"sql(
CREATE TABLE Parts (Name TEXT, Value TEXT, Stock INTEGER, Note TEXT);
INSERT INTO Parts WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000)
 SELECT 'R' || i, CASE i % 5 WHEN 1 THEN '1k' WHEN 2 THEN '2k2' WHEN 3 THEN '4700' ELSE '4k7' END,
 nullif(i % 7, 3), CASE i WHEN 2 THEN 'two' || char(10) || 'lines' WHEN 3 THEN '抵抗' END FROM n;
)sql";

class DbBrowseTest : public testing::Test
{
protected:
    DbBrowseTest() { m_Tool.RunLine("sqlite3 parts.db", PARTS); }

    CToolRun Browse(const std::string& options)
    {
        return m_Tool.RunLine("utility db browse Parts " + options);
    }

    /// The words by which the tool browses on a terminal, in the sandbox's folder.
    std::vector<std::string> Words(const std::string& options = {}) const
    {
        const std::string folder = m_Tool.GetFolder().GetNativePath().string();
        return {"sh", "-c",
                "cd '" + folder + "' && exec env TERM=xterm UTILITY_SETTINGS_DIR='" + folder +
                    "/settings' '" UTILITY_TOOL "' db browse Parts " + options};
    }

    CToolSandbox m_Tool;
};

TEST_F(DbBrowseTest, WithoutATerminalAllRowsArePrinted)
{
    m_Tool.RunLine("utility db map set Parts --column Stock map-to=Count && "
                   "utility db map set Parts --column Note show=no && "
                   "utility db rules set Parts Value=resistor");

    EXPECT_EQ(Browse("| head -4").m_Output, "Name   Value  Count\n"
                                            "-----  -----  -----\n"
                                            "R1     1k         1\n"
                                            "R2     2k2        2\n");
    EXPECT_EQ(Browse("| wc -l").m_Output, "5002\n");
    EXPECT_EQ(Browse("--filter 'Value = 4.7k' --sort Count | head -3").m_Output,
              "Name   Value  Count\n"
              "-----  -----  -----\n"
              "R14    4k7        0\n");
    EXPECT_EQ(Browse("--filter 'Value = 4.7k' | wc -l").m_Output, "3002\n");
    EXPECT_EQ(Browse("--filter r4999 --json").m_Output,
              "[{\"Name\": \"R4999\", \"Value\": \"4k7\", \"Count\": 1}]\n");
    EXPECT_EQ(Browse("--filter 'Name = R10' --json").m_Output,
              "[{\"Name\": \"R10\", \"Value\": \"4k7\", \"Count\": null}]\n");
}

TEST_F(DbBrowseTest, PrintedCellsAreWholeAndOnOneLine)
{
    EXPECT_EQ(Browse("--filter 'Name begins R3' | head -3").m_Output,
              "Name   Value  Stock  Note\n"
              "-----  -----  -----  ----\n"
              "R3     4700          抵抗\n");
    EXPECT_EQ(Browse("--filter two").m_Output, "Name  Value  Stock  Note\n"
                                               "----  -----  -----  ----------\n"
                                               "R2    2k2        2  two\\nlines\n");
    EXPECT_EQ(
        Browse("--filter two --json").m_Output,
        "[{\"Name\": \"R2\", \"Value\": \"2k2\", \"Stock\": 2, \"Note\": \"two\\nlines\"}]\n");
}

TEST_F(DbBrowseTest, OddNamesAndManyColumnsAreShown)
{
    std::string wide = "CREATE TABLE Wide (c0";
    for (int column = 1; column < 1000; column++)
        wide += ", c" + std::to_string(column);
    m_Tool.RunLine("sqlite3 odd.db", wide +
                                         ");"
                                         "CREATE TABLE \"a]b [c] \"\"d\" (\"x]y\" TEXT);"
                                         "INSERT INTO \"a]b [c] \"\"d\" VALUES ('1');"
                                         "INSERT INTO Wide (c0, c999) VALUES ('first', 'last');");

    EXPECT_EQ(
        m_Tool.RunLine("utility db browse --from odd.db 'a]b [c] \"d' --filter 'x]y = 1'").m_Output,
        "x]y\n"
        "---\n"
        "1\n");
    EXPECT_EQ(m_Tool.RunLine("utility db fields --from odd.db 'a]b [c] \"d' | tail -n +3").m_Output,
              "x]y   text   65536\n");
    EXPECT_EQ(
        m_Tool.RunLine("utility db browse --from odd.db Wide | tail -n 1 | tr -s ' '").m_Output,
        "first last\n");
}

TEST_F(DbBrowseTest, ExitCodesTellWhatStoodInTheWay)
{
    m_Tool.RunLine("utility db map set Parts --section None --column Name --column Value "
                   "--column Stock --column Note show=no");
    const struct
    {
        const char* m_Options;
        int m_ExitCode;
        const char* m_Error;
    } cases[] = {
        {"--filter R1", 0, ""},
        {"--filter nothing", 1, ""},
        {"--filter 'Stock between 5'", 2, "utility: a range takes two values, as in: "},
        {"--sort Weight", 2, "utility: there is no column 'Weight'\n"},
        {"--section None", 3, "utility: the map of 'Parts' shows no column: see "},
        {"--from none.db", 3, "utility: none.db: "},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Options);
        const CToolRun run = Browse(row.m_Options);
        EXPECT_EQ(run.m_ExitCode, row.m_ExitCode);
        EXPECT_EQ(run.m_Errors.substr(0, std::string(row.m_Error).size()), row.m_Error);
    }
}

TEST_F(DbBrowseTest, EverySourceIsBrowsedAlike)
{
    for (const EServer server : ALL_SERVERS)
    {
        SCOPED_TRACE(NameOf(server));
        const CString connect = CDatabaseServers::Get().MakeSource(server);
        CDatabase database;
        database.Open(nullptr, FALSE, FALSE, connect);
        database.ExecuteSQL(
            u"CREATE TABLE [My Stock] ([Part No] VARCHAR(20), [Wert Ω] VARCHAR(20), "
            u"[Count] INTEGER)");
        database.ExecuteSQL(
            u"INSERT INTO [My Stock] VALUES ('R1', '4k7', 5), ('R10', '4.7K', NULL), "
            u"('R9', '4700', 7), ('C1', '100n', 1)");
        const std::string options = " 'My Stock' --from '" + ToUtf8(connect.View()) + "' ";

        EXPECT_EQ(m_Tool.RunLine("utility db rules set" + options + "'wert Ω=any'").m_Errors, "");
        EXPECT_EQ(m_Tool
                      .RunLine("utility db map set" + options +
                               "--map maps.xml --column 'part no' map-to=Name")
                      .m_Errors,
                  "");
        const std::string browse = "utility db browse" + options + "--map maps.xml ";
        EXPECT_EQ(m_Tool.RunLine(browse + "--filter 'Wert Ω = 4.7k' --sort -name").m_Output,
                  "Name  Wert Ω  Count\n"
                  "----  ------  -----\n"
                  "R10   4.7K\n"
                  "R9    4700        7\n"
                  "R1    4k7         5\n");
        EXPECT_EQ(m_Tool.RunLine(browse + "--filter 'count >= 7' --json").m_Output,
                  "[{\"Name\": \"R9\", \"Wert Ω\": \"4700\", \"Count\": 7}]\n");
    }
}

TEST_F(DbBrowseTest, OnATerminalKeysAreHeardAndTheSizeIsFollowed)
{
    CTerminalProcess browser(Words());
    browser.Resize(10, 60);
    EXPECT_TRUE(browser.AwaitText("R7"));
    browser.Type("\x1bOF");                 // End
    EXPECT_TRUE(browser.AwaitText("4993")); // only what differs is written anew: no "R" before it
    browser.Resize(20, 40);
    EXPECT_TRUE(browser.AwaitText("4983"));
    browser.Type("/2k2\r");
    EXPECT_TRUE(browser.AwaitText("82"));
    browser.Type("q");

    const CTerminalRun run = browser.Finish();
    EXPECT_EQ(run.m_ExitCode, 0);
    EXPECT_TRUE(run.m_IsRestored);
    EXPECT_NE(run.m_Screen.find("\x1b[?1049l"), std::string::npos); // the screen from before
}

TEST_F(DbBrowseTest, InterruptLeavesTheTerminalAsItWas)
{
    CTerminalProcess browser(Words());
    EXPECT_TRUE(browser.AwaitText("R7"));
    browser.Type(INTERRUPT);

    const CTerminalRun run = browser.Finish();
    EXPECT_EQ(run.m_ExitCode, 0);
    EXPECT_TRUE(run.m_IsRestored);
}

TEST_F(DbBrowseTest, FailureIsToldOnTheTerminalAsItWas)
{
    // The first rows can be read, what follows them not.
    m_Tool.RunLine("dd if=/dev/zero of=parts.db bs=4096 seek=20 count=5 conv=notrunc");

    const CTerminalRun run = RunOnTerminal(Words(), "");

    EXPECT_EQ(run.m_ExitCode, 3);
    EXPECT_TRUE(run.m_IsRestored);
    const std::size_t end = run.m_Screen.find("\x1b[?1049l");
    ASSERT_NE(end, std::string::npos);
    EXPECT_NE(run.m_Screen.find("utility: parts.db: ", end), std::string::npos);
}

TEST_F(DbBrowseTest, ATerminalWithoutAScreenIsRefused)
{
    for (const char* kind : {"TERM=none-such", "TERM=dumb"})
    {
        SCOPED_TRACE(kind);
        std::vector<std::string> words = Words();
        words[2].replace(words[2].find("TERM=xterm"), 10, kind);

        const CTerminalRun run = RunOnTerminal(words, "");

        EXPECT_EQ(run.m_ExitCode, 3);
        EXPECT_EQ(
            run.m_Screen,
            "utility: a terminal of this kind (TERM) cannot show a screen; '| cat' prints the "
            "rows\n");
    }
}

} // namespace
