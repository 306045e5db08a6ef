#include "platform/base/Encoding.h"

#include "tools/ToolProcess.h"
#include "utility/frame/ProfileLog.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

const std::string RULE = std::string(50, '-') + "\r\n";
const std::string LOG = RULE + "Board               :   1700 (100%) [1]\r\n" +
                        "Error: Too many profile points at Net\r\n" + //
                        "Draw                :     90 (5%) [12]\r\n" +
                        "Route: \"10\"         :    700 (41%) [3]\r\n" + RULE +
                        "Board               :     20 (100%) [1]\r\n";

TEST(ProfileCommandsTest, LinesAreReadFromTheirEnd)
{
    const struct
    {
        const char16_t* Line;
        const char16_t* Name; // null for what is no row
        int Total = 0;
        int Percent = 0;
        int Calls = 0;
    } cases[] = {
        {u"Board    :   1700 (100%) [1]", u"Board", 1700, 100, 1},
        {u"a: 1 (2%) [3]: 4 (5%) [6]", u"a: 1 (2%) [3]", 4, 5, 6},
        {u": 1234567 (0%) [0]", u"", 1234567, 0, 0},
        {u"Board : 1700 (100%) [x]", nullptr},
        {u"Board : 1700 (%) [1]", nullptr},
        {u"Board 1700 (100%) [1]", nullptr},
        {u"Error: Too many profile points at Net", nullptr},
        {u"", nullptr},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(ToUtf8(test.Line));
        const std::optional<CProfileRow> row = ParseProfileLine(test.Line);
        ASSERT_EQ(row.has_value(), test.Name != nullptr);
        const CProfileRow read = row.value_or(CProfileRow());
        EXPECT_EQ(read.m_Name, test.Name);
        EXPECT_EQ(read.m_Total, test.Total);
        EXPECT_EQ(read.m_Percent, test.Percent);
        EXPECT_EQ(read.m_Calls, test.Calls);
    }
}

TEST(ProfileCommandsTest, TablesAreSortedAsAskedFor)
{
    const CToolSandbox tool;
    tool.GetFolder().MakeFile(u"p.log", LOG);
    const std::string heading = "Table,Milliseconds,Percent,Calls,Region\n";
    const std::string board = "1,1700,100,1,Board\n";
    const std::string draw = "1,90,5,12,Draw\n";
    const std::string route = "1,700,41,3,\"Route: \"\"10\"\"\"\n";
    const std::string last = "2,20,100,1,Board\n";
    const struct
    {
        std::vector<std::string> Words;
        std::string Output;
    } cases[] = {
        {{}, heading + board + route + draw + last},
        {{"--sort", "calls"}, heading + draw + route + board + last},
        {{"--sort", "name"}, heading + board + draw + route + last},
        {{"--sort", "use"}, heading + board + draw + route + last},
        {{"--last"}, heading + last},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(testing::PrintToString(test.Words));
        std::vector<std::string> words = {"log", "profile", "p.log", "--csv"};
        words.insert(words.end(), test.Words.begin(), test.Words.end());
        const CToolRun run = tool.Run(words);
        EXPECT_EQ(run.m_ExitCode, 0);
        EXPECT_EQ(run.m_Output, test.Output);
        EXPECT_EQ(run.m_Errors, "utility: Error: Too many profile points at Net\n");
    }
    EXPECT_EQ(tool.Run({"log", "profile", "p.log", "--last", "--json"}).m_Output,
              "[{\"table\": 2, \"region\": \"Board\", \"milliseconds\": 20, \"percent\": 100, "
              "\"calls\": 1}]\n");
}

TEST(ProfileCommandsTest, TheFileIsThatOfTheNamedProgram)
{
    const CToolSandbox tool;

    const CToolRun path = tool.Run({"log", "profile", "--path", "--app", "Makers/Board"});
    const CToolRun missing = tool.Run({"log", "profile"});

    EXPECT_TRUE(path.m_Output.ends_with("/Board/Profiling.Log\n")) << path.m_Output;
    EXPECT_EQ(missing.m_ExitCode, 3);
    EXPECT_NE(missing.m_Errors.find("Profiling.Log: "), std::string::npos) << missing.m_Errors;
}

} // namespace
