#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

using namespace utility;
using namespace std::string_literals;

namespace
{

const std::string UTF16 = "\xFF\xFE"s + "R\0\xB1\0\r\0\n\0"s;

TEST(TextCommandsTest, ReadPrintsAnyEncodingAsUtf8)
{
    const CToolSandbox sandbox;
    sandbox.GetFolder().MakeFile(u"page.txt", "R\xB1");
    sandbox.GetFolder().MakeFile(u"unicode.txt", UTF16);

    EXPECT_EQ(sandbox.Run({"text", "read", "page.txt", "--page", "1252"}).m_Output, "R\xC2\xB1\n");
    EXPECT_EQ(sandbox.Run({"text", "read", "unicode.txt"}).m_Output, "R\xC2\xB1\n");
    EXPECT_EQ(sandbox.Run({"text", "read", "-", "--json"}, "a\n\nb").m_Output,
              "[\"a\", \"\", \"b\"]\n");
}

TEST(TextCommandsTest, ConvertReplacesTheTargetAsAWhole)
{
    const CToolSandbox sandbox;
    sandbox.GetFolder().MakeFile(u"a.txt", "R\xB1\n");
    sandbox.GetFolder().MakeFile(u"b.txt", "old");

    const CToolRun run =
        sandbox.Run({"text", "convert", "a.txt", "b.txt", "--page", "1252", "--to", "utf16"});

    EXPECT_EQ(run.m_ExitCode, 0) << run.m_Errors;
    EXPECT_EQ(sandbox.GetFolder().Read(u"b.txt"), UTF16);
    EXPECT_EQ(sandbox.GetFolder().List(), (std::vector<std::string>{"a.txt", "b.txt"}));
}

TEST(TextCommandsTest, FailuresNameTheFileAndChangeNothing)
{
    const CToolSandbox sandbox;
    sandbox.GetFolder().MakeFile(u"a.txt", "new");
    sandbox.GetFolder().MakeFile(u"b.txt", "old");
    std::filesystem::permissions(sandbox.GetFolder().GetNativePath() / "b.txt",
                                 std::filesystem::perms(0444));

    const CToolRun absent = sandbox.Run({"text", "read", "none.txt"});
    const CToolRun readOnly = sandbox.Run({"text", "convert", "a.txt", "b.txt"});

    EXPECT_EQ(absent.m_ExitCode, 3);
    EXPECT_NE(absent.m_Errors.find("none.txt: "), std::string::npos) << absent.m_Errors;
    EXPECT_EQ(readOnly.m_ExitCode, 3);
    EXPECT_NE(readOnly.m_Errors.find("read-only"), std::string::npos) << readOnly.m_Errors;
    EXPECT_EQ(sandbox.GetFolder().Read(u"b.txt"), "old");
    EXPECT_EQ(sandbox.Run({"text", "convert", "a.txt", "b.txt", "--to", "utf7"}).m_ExitCode, 2);
}

TEST(PathCommandsTest, PathsAreCutSqueezedJoinedAndMadeWhole)
{
    struct CCase
    {
        std::vector<std::string> Words;
        std::string Input;
        std::string Output;
    };
    const CCase cases[] = {
        {{"path", "squeeze", "/lib/board.pcb"}, "", "board.pcb   [in \"/lib\"]\n"},
        {{"path", "squeeze", "\\lib\\analog\\filters\\board.pcb", "--length", "28"},
         "",
         "board.pcb   [in \"\\lib\\...\\filters\"]\n"},
        {{"path", "join", "/lib", "analog", "board.pcb", "--native"},
         "",
         "/lib/analog/board.pcb\n"},
        {{"path", "join", "C:\\lib"}, "", "C:\\lib\\\n"},
        {{"path", "normalise", "/a/../b/./c"}, "", "\\b\\c\n"},
        {{"path", "normalise", "--native"}, "/x/..\n/y\n", "/\n/y\n"},
        {{"path", "parts", "--json", "C:a/b.c"},
         "",
         "[{\"drive\": \"C:\", \"directory\": \"a/\", \"name\": \"b\", \"extension\": \".c\", "
         "\"cut\": false}]\n"},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(testing::PrintToString(test.Words));
        const CToolRun run = RunTool(test.Words, test.Input);
        EXPECT_EQ(run.m_ExitCode, 0) << run.m_Errors;
        EXPECT_EQ(run.m_Output, test.Output);
    }
    EXPECT_EQ(RunTool({"path", "join", "/" + std::string(300, 'x')}).m_ExitCode, 3);
}

} // namespace
