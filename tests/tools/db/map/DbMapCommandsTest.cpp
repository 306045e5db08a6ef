#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

constexpr char PARTS[] = R"sql(
CREATE TABLE Parts (PART_NUMBER VARCHAR(40), VALUE VARCHAR(40), Note TEXT,
 "?column?" TEXT, "a=b <x>" TEXT, "Größe\幅" TEXT);
CREATE VIEW Notes AS SELECT Note FROM Parts;
)sql";

class DbMapCommandsTest : public testing::Test
{
protected:
    DbMapCommandsTest() { m_Tool.RunLine("sqlite3 parts.db", PARTS); }

    CToolRun Map(const std::vector<std::string>& words)
    {
        std::vector<std::string> all = {"db", "map"};
        all.insert(all.end(), words.begin(), words.end());
        return m_Tool.Run(all);
    }

    CToolSandbox m_Tool;
};

TEST_F(DbMapCommandsTest, ColumnsKeepWhatIsSetWhateverTheirNames)
{
    const struct
    {
        std::vector<std::string> m_Words;
        const char* m_Shown; // in what `show --json` prints then
    } cases[] = {
        {{"set", "Parts", "--column", "value", "map-to=Value & more", "show=no"},
         R"({"name": "VALUE", "map-to": "Value & more", "load": true, "show": false, "critical": true)"},
        {{"set", "Parts", "--column", "?column?", "critical=yes"},
         R"({"name": "?column?", "map-to": "?column?", "load": true, "show": true, "critical": true)"},
        {{"set", "Parts", "--column", "a=b <x>", "--column", "Größe\\幅", "hyperlink=yes",
          "load=no"},
         R"({"name": "a=b <x>", "map-to": "a=b <x>", "load": false, "show": true, )"
         R"("critical": false, "hyperlink": true}, {"name": "Größe\\幅", "map-to": "Größe\\幅", )"
         R"("load": false, "show": true, "critical": false, "hyperlink": true})"},
        {{"set", "Parts", "--column", "Note", "map-to="}, R"({"name": "Note", "map-to": "", )"},
        {{"set", "Parts", "key-field=PART_NUMBER", "part-name-field=note", "visible=yes"},
         R"({"table": "Parts", "key-field": "PART_NUMBER", "part-name-field": "note", )"
         R"("visible": true, )"},
        {{"set", "Parts", "part-name-field="}, R"("part-name-field": "", "visible": true)"},
        {{"reset", "Parts", "--column", "VALUE"},
         R"({"name": "VALUE", "map-to": "VALUE", "load": true, "show": true, "critical": true)"},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Shown);
        const CToolRun run = Map(row.m_Words);
        EXPECT_EQ(run.m_ExitCode, 0) << run.m_Errors;
        const std::string shown = Map({"show", "Parts", "--json"}).m_Output;
        EXPECT_NE(shown.find(row.m_Shown), std::string::npos) << shown;
    }
}

TEST_F(DbMapCommandsTest, ResetOfATableForgetsAllThatWasSetOfIt)
{
    const std::string before = Map({"show", "Parts"}).m_Output;
    EXPECT_EQ(Map({"set", "Parts", "--column", "VALUE", "map-to=x", "load=no"}).m_ExitCode, 0);
    EXPECT_EQ(Map({"set", "Parts", "key-field=VALUE", "visible=yes"}).m_ExitCode, 0);
    EXPECT_NE(Map({"show", "Parts"}).m_Output, before);

    EXPECT_EQ(Map({"reset", "Parts"}).m_ExitCode, 0);

    EXPECT_EQ(Map({"show", "Parts"}).m_Output, before);
}

TEST_F(DbMapCommandsTest, SettingsOfADroppedColumnReturnWithIt)
{
    Map({"set", "Parts", "--column", "Note", "map-to=Remark"});
    m_Tool.RunLine("sqlite3 parts.db", "DROP VIEW Notes; ALTER TABLE Parts DROP COLUMN Note;");
    Map({"set", "Parts", "--column", "VALUE", "show=no"});
    EXPECT_EQ(Map({"show", "Parts"}).m_Output.find("Remark"), std::string::npos);

    m_Tool.RunLine("sqlite3 parts.db", "ALTER TABLE Parts ADD COLUMN Note TEXT;");

    EXPECT_NE(Map({"show", "Parts"}).m_Output.find("Note         Remark"), std::string::npos);
}

TEST_F(DbMapCommandsTest, EachSectionAndFileIsOfItsOwn)
{
    Map({"set", "Parts", "--column", "Note", "map-to=Here"});
    Map({"set", "Parts", "--column", "Note", "map-to=There", "--section", "Other"});
    Map({"set", "Parts", "--column", "Note", "map-to=Elsewhere", "--map", "other.xml"});

    const struct
    {
        std::vector<std::string> m_Where;
        const char* m_MapTo;
    } cases[] = {
        {{}, "Here"},
        {{"--section", "Other"}, "There"},
        {{"--map", "parts.map.xml", "--section", "Other"}, "There"},
        {{"--from", "DRIVER=SQLite3;Database=parts.db"}, "Note"}, // no file stands beside it
        {{"--from", "DRIVER=SQLite3;Database=parts.db", "--map", "other.xml"}, "Elsewhere"},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_MapTo);
        std::vector<std::string> words = {"show", "Parts"};
        words.insert(words.end(), row.m_Where.begin(), row.m_Where.end());
        const std::string shown = Map(words).m_Output;
        EXPECT_NE(shown.find(std::string("Note         ") + row.m_MapTo + " "), std::string::npos)
            << shown;
    }
}

TEST_F(DbMapCommandsTest, WithoutATableAllTablesAreListed)
{
    m_Tool.RunLine("sqlite3 parts.db", "CREATE VIEW Broken AS SELECT 1 FROM Gone;");
    Map({"set", "Parts", "--column", "Note", "load=no"});
    Map({"set", "Parts", "key-field=VALUE"});

    EXPECT_EQ(Map({"show"}).m_Output,
              "Table      Columns  Loaded  Key-field  Part-name-field  Visible\n"
              "------  ----------  ------  ---------  ---------------  -------\n"
              "Broken  unreadable                                      no\n"
              "Notes            1       1                              no\n"
              "Parts            6       5  VALUE                       no\n");
}

TEST_F(DbMapCommandsTest, WrongWordsAndFilesAreTold)
{
    m_Tool.GetFolder().MakeFile(u"bad.xml", "<Utility><Mapp");
    const struct
    {
        std::vector<std::string> m_Words;
        int m_ExitCode;
        const char* m_Error;
    } cases[] = {
        {{"set"}, 2, "utility: set needs a TABLE; see 'utility db map --help'\n"},
        {{"set", "Parts"}, 2, "utility: a change is missing: PROPERTY=VALUE; see "},
        {{"set", "Parts", "visible"}, 2, "utility: 'visible' is no change: PROPERTY=VALUE\n"},
        {{"set", "Parts", "visible=maybe"}, 2, "utility: 'visible' takes yes or no, not 'maybe'\n"},
        {{"set", "Parts", "shown=no", "--column", "VALUE"},
         2,
         "utility: there is no property 'shown', did you mean 'show'?\n"},
        {{"set", "Parts", "show=no"}, 2, "utility: 'show' is a column's: name it by --column\n"},
        {{"set", "Parts", "visible=no", "--column", "VALUE"},
         2,
         "utility: 'visible' is the table's: leave --column out\n"},
        {{"set", "Parts", "show=no", "--column", "VALU"},
         2,
         "utility: 'Parts' has no column 'VALU', did you mean 'VALUE'?\n"},
        {{"set", "Parts", "key-field=Weight"},
         2,
         "utility: 'Parts' has no column 'Weight'; it has "},
        {{"reset", "Parts", "show=no"}, 2, "utility: reset takes no changes, but --column NAME; "},
        {{"reset", "Parts", "--column", "x"}, 2, "utility: 'Parts' has no column 'x'; it has "},
        {{"set", "Parts", "visible=yes", "--from", "DRIVER=SQLite3;Database=parts.db"},
         2,
         "utility: the field maps of this source need a file: --map FILE\n"},
        {{"show", "Absent"}, 3, "utility: parts.db: Table not found: no such table: Absent (1)\n"},
        {{"show", "Parts", "--map", "bad.xml"},
         3,
         "utility: bad.xml: this is no readable file of field maps\n"},
        {{"set", "Parts", "visible=yes", "--map", "none/maps.xml"},
         3,
         "utility: none/maps.xml: the field map could not be written\n"},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Error);
        const CToolRun run = Map(row.m_Words);
        EXPECT_EQ(run.m_ExitCode, row.m_ExitCode);
        EXPECT_EQ(run.m_Errors.substr(0, std::string(row.m_Error).size()), row.m_Error);
    }
    EXPECT_EQ(m_Tool.GetFolder().Read(u"bad.xml"), "<Utility><Mapp");
    EXPECT_NE(Map({"show"}).m_Output.find("Parts        6       6                              no"),
              std::string::npos);
}

} // namespace
