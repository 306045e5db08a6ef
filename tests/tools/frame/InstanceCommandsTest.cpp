#include "support/HostProcess.h"
#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace utility;

namespace
{

/// The tool where this test's hosts are seen.
CToolRun RunBesideHosts(const std::string& words)
{
    return CToolSandbox().RunLine(
        "XDG_RUNTIME_DIR='" + std::string(std::getenv("XDG_RUNTIME_DIR")) + "' utility " + words);
}

TEST(InstanceCommandsTest, ListShowsEachWindowWithItsInstanceAndProcess)
{
    CHostProcess host({"-I12", "far"});
    ASSERT_EQ(host.Hear(), "ready");
    ASSERT_EQ(host.Ask("title Board \"one\""), "done");
    const std::string process = std::to_string(host.GetId());

    const CToolRun run = RunBesideHosts("instance list");
    EXPECT_EQ(run.m_ExitCode, 0);
    EXPECT_NE(run.m_Output.find("      12  "), std::string::npos) << run.m_Output;
    EXPECT_NE(run.m_Output.find(process + "  Boards       Board \"one\"\n"), std::string::npos)
        << run.m_Output;
    EXPECT_EQ(RunBesideHosts("instance list --json").m_Output,
              "[{\"instance\": 12, \"process\": " + process +
                  ", \"application\": \"Boards\", \"class\": \"Frame\", "
                  "\"title\": \"Board \\\"one\\\"\"}]\n");

    host.Kill();
    EXPECT_EQ(RunBesideHosts("instance list").m_ExitCode, 1);
}

TEST(InstanceCommandsTest, NoneIsNoError)
{
    const CToolRun run = RunTool({"instance", "list"});
    EXPECT_EQ(run.m_ExitCode, 1);
    EXPECT_EQ(run.m_Output + run.m_Errors, "");
    EXPECT_EQ(RunTool({"instance", "list", "--json"}).m_Output, "[]\n");
}

} // namespace
