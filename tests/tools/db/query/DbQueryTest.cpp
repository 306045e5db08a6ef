#include "tools/ToolProcess.h"
#include "utility/db/stock/PassiveStock.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace utility;

namespace
{

/// Each row of the file Parts: as a user's own, with gaps, words for numbers and odd texts.
constexpr char PARTS[] = R"sql(
CREATE TABLE Parts (Name VARCHAR(40), Value VARCHAR(40), Stock INTEGER, Price DOUBLE);
INSERT INTO Parts VALUES ('R10', '4k7', 5, 0.5), ('R9', '10k', NULL, 0.25), ('R1', '', 0, NULL),
 ('R2', NULL, 7, 1), ('C|1', '100n', 2, 0.125), ('a, "b"', 'none', 3, 2), ('R3', '4700', 1, 3);
)sql";

class DbQueryTest : public testing::Test
{
protected:
    DbQueryTest() { m_Tool.RunLine("sqlite3 parts.db", PARTS); }

    CToolRun Query(const std::vector<std::string>& words)
    {
        std::vector<std::string> all = {"db", "query", "Parts"};
        all.insert(all.end(), words.begin(), words.end());
        return m_Tool.Run(all);
    }

    /// The names of the rows found, with commas between.
    std::string Names(std::vector<std::string> words)
    {
        words.insert(words.end(), {"--columns", "Name", "--csv"});
        const CToolRun run = Query(words);
        std::string names =
            run.m_Errors + run.m_Output.substr(std::min<std::size_t>(5, run.m_Output.size()));
        std::replace(names.begin(), names.end(), '\n', ' ');
        return names;
    }

    CToolSandbox m_Tool;
};

TEST_F(DbQueryTest, TestsAndPatternsMustAllHold)
{
    const std::string parse = "Value=resistor";
    const struct
    {
        std::vector<std::string> m_Words;
        std::string m_Names;
    } cases[] = {
        {{"--where", "Value|Between|4k7|10k", "--parse", parse}, "R10 R9 R3 "},
        {{"--where", "value|BETWEEN|10k|4.7K", "--parse", "VALUE=Resistor"}, "R10 R9 R3 "},
        {{"--where", "Value|Is not between|4k7|5k", "--parse", parse}, "R9 "},
        {{"--where", "Value|Equal to|4.7k", "--parse", parse}, "R10 R3 "},
        {{"--where", "Value|Equal to|4700"}, "R3 "},
        {{"--where", "Value|Begins with|4K7"}, "R10 "},
        {{"--where", "Value|Not equal to|4k7", "--parse", parse}, "R9 "},
        {{"--where", "Name|Contains|c|1"}, "C|1 "},
        {{"--where", "Value|Equal to|none"}, "\"a, \"\"b\"\"\" "},
        {{"--match", "Name|R1*|R9"}, "R10 R9 R1 "},
        {{"--match", "Name|r*", "--where", "Stock|Greater than|4", "--parse", "Stock=number"},
         "R10 R2 "},
        {{"--where", "Name|Begins with|R", "--limit", "2"}, "R10 R9 "},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Words[1]);
        EXPECT_EQ(Names(row.m_Words), row.m_Names);
    }
}

TEST_F(DbQueryTest, SortsNumbersByValueThenTextsAsNames)
{
    EXPECT_EQ(Names({"--sort", "Name"}), "\"a, \"\"b\"\"\" C|1 R1 R2 R3 R9 R10 ");
    EXPECT_EQ(Names({"--sort", "Name", "--descending", "--limit", "3"}), "R10 R9 R3 ");
    EXPECT_EQ(Names({"--sort", "Value", "--parse", "Value=any"}),
              "C|1 R10 R3 R9 R1 R2 \"a, \"\"b\"\"\" ");
    EXPECT_EQ(Names({"--sort", "stock", "--descending", "--parse", "Stock=number", "--limit", "2"}),
              "R9 R2 "); // R9 has no stock, so it is a text
}

TEST_F(DbQueryTest, PrintsATableJsonAndCsv)
{
    const std::vector<std::string> two = {"--where", "Stock|Less than|2", "--parse",
                                          "Stock=number"};
    const CToolRun table = Query(two);
    EXPECT_EQ(table.m_Output.find("Name  Value  Stock  Price\n"
                                  "----  -----  -----  -----\n"
                                  "R1               0\n"
                                  "R3    4700       1      3\n"
                                  "\n"
                                  "2 of 7 rows, "),
              0u)
        << table.m_Output;

    std::vector<std::string> json = two;
    json.push_back("--json");
    EXPECT_EQ(Query(json).m_Output,
              "[{\"Name\": \"R1\", \"Value\": \"\", \"Stock\": 0, \"Price\": null}, "
              "{\"Name\": \"R3\", \"Value\": \"4700\", \"Stock\": 1, \"Price\": 3}]\n");
    EXPECT_EQ(Query({"--csv", "--columns", "price, NAME", "--match", "Name|a*"}).m_Output,
              "Price,Name\n2,\"a, \"\"b\"\"\"\n");
}

TEST_F(DbQueryTest, ExitCodesTellMatchNoMatchAndWrongWords)
{
    const struct
    {
        std::vector<std::string> m_Words;
        int m_ExitCode;
        const char* m_Error; // its beginning
    } cases[] = {
        {{"--limit", "0"}, 0, ""},
        {{"--match", "Name|X*"}, 1, ""},
        {{"--where", "Value|Equal to|4K7"}, // finds 4700 alone: letters suit no rule nowhere
         0,
         "utility: no rule says what the texts of 'Value' mean: see --parse, "},
        {{"--where", "Value|Greater than|4711"},
         1,
         "utility: no rule says what the texts of 'Value' mean: see --parse, "},
        {{"--where", "Value|Between|4k|5k", "--limit", "0", "--parse", "Value=any"}, 0, ""},
        {{"--where", "Value|Equal to|nothing"}, 1, ""},
        {{"--where", "Stock|Equal to|4711"}, 1, ""}, // a number by itself
        {{"--where", "Value|Between|4k7|lots", "--parse", "Value=resistor"},
         2,
         "utility: --where on 'Value': 'lots' is no number as resistor\n"},
        {{"--where", "Value|Between|4k7"},
         2,
         "utility: --where 'Value|Between|4k7': a range takes two values: "
         "'Value|Between|FROM|TO'\n"},
        {{"--where", "Value|Equal to|10uF", "--parse", "value=resistor"},
         2,
         "utility: --where on 'Value': the letters of '10uF' do not suit resistor\n"},
        {{"--where", "Value|About|5"},
         2,
         "utility: --where 'Value|About|5': there is no operator 'About'; there are 'Equal to', "},
        {{"--where", "Value"}, 2, "utility: --where 'Value': it takes 'COLUMN|OPERATOR|VALUE'\n"},
        {{"--match", "Name"}, 2, "utility: --match 'Name': it takes 'COLUMN|PATTERN'\n"},
        {{"--parse", "Value=weight"}, 2, "utility: --parse 'Value=weight': it takes COLUMN=TYPE, "},
        {{"--limit", "-1"},
         2,
         "utility: --limit: '-1' is no whole number from 0 on; see 'utility db query --help'\n"},
        {{"--sort", "Weight"},
         2,
         "utility: 'Parts' has no column 'Weight'; it has Name, Value, Stock, Price\n"},
        {{"--parse", "Weight=number"},
         2,
         "utility: 'Parts' has no column 'Weight'; it has Name, Value, Stock, Price\n"},
        {{"--match", "Weight|5"},
         2,
         "utility: 'Parts' has no column 'Weight'; it has Name, Value, Stock, Price\n"},
        {{"--where", "|Equal to|4"},
         2,
         "utility: --where '|Equal to|4': it takes 'COLUMN|OPERATOR|VALUE'\n"},
        {{"--where", "Value|Contains|lots", "--parse", "Value=resistor"}, 1, ""}, // a text operator
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Words.back());
        const CToolRun run = Query(row.m_Words);
        EXPECT_EQ(run.m_ExitCode, row.m_ExitCode);
        EXPECT_EQ(run.m_Errors.substr(0, std::string(row.m_Error).size()), row.m_Error);
    }
}

TEST_F(DbQueryTest, LogTellsWhatWasAskedAndFound)
{
    m_Tool.Run({"log", "contexts", "DBADatabase; Db"});
    m_Tool.Run({"log", "on"});
    Query({"--where", "Stock|Less than|2", "--parse", "Stock=number"});
    const std::string log = m_Tool.RunLine("utility log show | sed 's/ *$//'").m_Output;

    for (const char* line :
         {"Work on parts.db\n(\n    CDBADatabase::Open\n    (\n",
          "\n    Query of 'Parts'\n    (\n        SELECT [Name], [Value], [Stock], [Price] FROM "
          "[Parts]\n        2 of 7 rows match\n        Milliseconds: fetch "})
        EXPECT_NE(log.find(line), std::string::npos) << line << "in\n" << log;

    m_Tool.Run({"db", "fields", "Absent"});
    const std::string refused = m_Tool.Run({"log", "show"}).m_Output;
    EXPECT_NE(refused.find("\n    Refused: Table not found: no such table: Absent"),
              std::string::npos)
        << refused;
}

TEST_F(DbQueryTest, ResistorsBetween4k7And10kAreThoseThatCountingFinds)
{
    const std::vector<CPassive> stock = MakePassiveStock();
    const auto isWanted = [](const CPassive& part)
    {
        return part.m_Kind == u"Resistor" && part.m_Nominal > 4699.99 && part.m_Nominal < 10000.01;
    };
    const auto wanted = std::count_if(stock.begin(), stock.end(), isWanted);
    const std::string line =
        "utility db query Passives --where 'Kind|Equal to|Resistor' "
        "--where 'Value|Between|4k7|10k' --parse Value=resistor --csv | tail -n +2 | wc -l";

    for (int run = 0; run < 2; run++) // the second replaces the rows of the first
    {
        EXPECT_EQ(m_Tool.Run({"db", "make-passives"}).m_ExitCode, 0);
        EXPECT_EQ(std::atol(m_Tool.RunLine(line).m_Output.c_str()), wanted);
    }
    const CToolRun whole = m_Tool.Run({"db", "query", "Passives", "--limit", "1"});
    EXPECT_NE(whole.m_Output.find(" of " + std::to_string(stock.size()) + " rows"),
              std::string::npos)
        << whole.m_Output;
}

} // namespace
