#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

constexpr char PARTS[] = R"sql(
CREATE TABLE Parts (Name TEXT, Value TEXT, "a\b=c" TEXT);
INSERT INTO Parts VALUES ('R1', '4k7', '104'), ('R2', '4700', '1'), ('R3', '10k', '22n');
CREATE TABLE "Odd \ name" (Value TEXT);
)sql";

class DbRulesCommandsTest : public testing::Test
{
protected:
    DbRulesCommandsTest() { m_Tool.RunLine("sqlite3 parts.db", PARTS); }

    CToolRun Rules(const std::vector<std::string>& words)
    {
        std::vector<std::string> all = {"db", "rules"};
        all.insert(all.end(), words.begin(), words.end());
        return m_Tool.Run(all);
    }

    std::string Names(const std::string& options)
    {
        return m_Tool
            .RunLine("utility db query Parts --csv --columns Name " + options +
                     " | tail -n +2 | tr '\\n' ' '")
            .m_Output;
    }

    CToolSandbox m_Tool;
};

TEST_F(DbRulesCommandsTest, QueriesFilterAndSortByTheRules)
{
    constexpr char EQUAL[] = "--where 'Value|Equal to|4.7k'";
    EXPECT_EQ(Names(EQUAL), "R2 ");
    EXPECT_EQ(Names("--sort 'a\\b=c'"), "R3 R2 R1 ");

    EXPECT_EQ(Rules({"set", "parts", "value=Resistor", "a\\b=c=capacitor"}).m_ExitCode, 0);

    EXPECT_EQ(Names(EQUAL), "R1 R2 ");
    EXPECT_EQ(Names("--sort 'A\\B=C'"), "R3 R1 R2 "); // 104 is 0.1 there
    EXPECT_EQ(Names("--where 'a\\b=c|Between|1n|0.2'"), "R1 R3 ");
    EXPECT_EQ(Names(std::string(EQUAL) + " --parse Value=none"), "R2 ");
    const CToolRun unsuited = m_Tool.Run({"db", "query", "Parts", "--where", "Value|Equal to|1uF"});
    EXPECT_EQ(unsuited.m_ExitCode, 2);
    EXPECT_EQ(unsuited.m_Errors,
              "utility: --where on 'Value': the letters of '1uF' do not suit resistor\n");
}

TEST_F(DbRulesCommandsTest, RulesAreKeptBySourceAndTableUntilReset)
{
    const struct
    {
        std::vector<std::string> m_Words;
        const char* m_Rules; // as `show --json` prints them
    } cases[] = {
        {{"show"}, "[]\n"},
        {{"set", "Odd \\ name", "Value=number"},
         "[{\"table\": \"Odd \\\\ name\", \"column\": \"Value\", \"rule\": \"number\"}]\n"},
        {{"reset", "Odd \\ name"}, "[]\n"},
        {{"set", "Parts", "Value=any", "a\\b=c=capacitor"},
         "[{\"table\": \"Parts\", \"column\": \"Value\", \"rule\": \"any\"}, "
         "{\"table\": \"Parts\", \"column\": \"a\\\\b=c\", \"rule\": \"capacitor\"}]\n"},
        {{"set", "Parts", "a\\b=c=none", "value=inductor"},
         "[{\"table\": \"Parts\", \"column\": \"Value\", \"rule\": \"inductor\"}]\n"},
        {{"reset", "Parts", "Name"},
         "[{\"table\": \"Parts\", \"column\": \"Value\", \"rule\": \"inductor\"}]\n"},
        {{"reset", "parts", "VALUE"}, "[]\n"},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Rules);
        EXPECT_EQ(Rules(row.m_Words).m_ExitCode, 0);
        EXPECT_EQ(Rules({"show", "--json"}).m_Output, row.m_Rules);
    }
}

TEST_F(DbRulesCommandsTest, AFileIsOneSourceFromWherever)
{
    Rules({"set", "Parts", "Value=any"});
    m_Tool.RunLine("mkdir sub; cp parts.db sub/other.db");

    const std::string shown = "Table  Column  Rule\n"
                              "-----  ------  ----\n"
                              "Parts  Value   any\n";
    EXPECT_EQ(m_Tool.RunLine("cd sub && utility db rules show --from ../parts.db").m_Output, shown);
    EXPECT_EQ(Rules({"show", "Parts"}).m_Output, shown);
    EXPECT_EQ(Rules({"show", "--from", "sub/other.db"}).m_Output, "Table  Column  Rule\n"
                                                                  "-----  ------  ----\n");
}

TEST_F(DbRulesCommandsTest, PasswordsAreNotKept)
{
    const std::string source = "DRIVER=SQLite3;Database=parts.db;PWD=s3cret";
    EXPECT_EQ(Rules({"set", "Parts", "Value=any", "--from", source}).m_ExitCode, 0);
    EXPECT_NE(Rules({"show", "--from", source}).m_Output.find("any"), std::string::npos);

    EXPECT_EQ(m_Tool.RunLine("cd ~ && grep -rl s3cret settings || echo none").m_Output, "none\n");
    EXPECT_NE(m_Tool.RunLine("cd ~ && grep -rl 'parts.db;PWD=' settings").m_Output, "");
}

TEST_F(DbRulesCommandsTest, WrongWordsAreTold)
{
    const struct
    {
        std::vector<std::string> m_Words;
        int m_ExitCode;
        const char* m_Error;
    } cases[] = {
        {{"set"}, 2, "utility: set needs a TABLE; see 'utility db rules --help'\n"},
        {{"set", "Parts"}, 2, "utility: a rule is missing: COLUMN=TYPE; see "},
        {{"set", "Parts", "Value"}, 2, "utility: 'Value' is no COLUMN=TYPE, the type capacitor, "},
        {{"set", "Parts", "Value=weight"}, 2, "utility: 'Value=weight' is no COLUMN=TYPE, "},
        {{"set", "Parts", "Valeu=any"},
         2,
         "utility: 'Parts' has no column 'Valeu'; it has Name, Value, a\\b=c\n"},
        {{"set", "Absent", "Value=any"}, 3, "utility: parts.db: Table not found: "},
        {{"show", "Parts", "Value"}, 2, "utility: show takes a TABLE alone; see "},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Error);
        const CToolRun run = Rules(row.m_Words);
        EXPECT_EQ(run.m_ExitCode, row.m_ExitCode);
        EXPECT_EQ(run.m_Errors.substr(0, std::string(row.m_Error).size()), row.m_Error);
    }
    EXPECT_EQ(Rules({"show"}).m_Output.find("Parts"), std::string::npos);
}

} // namespace
