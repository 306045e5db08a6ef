#include "tools/ToolProcess.h"
#include "utility/command/CommandHelp.h"
#include "utility/command/CommandTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace utility
{

using testing::HasSubstr;

TEST(CompletionTest, ScriptOfEveryShellKnowsEveryGroupVerbAndOption)
{
    for (const std::string shell : {"bash", "zsh", "fish"})
    {
        SCOPED_TRACE(shell);
        const CToolRun run = RunTool({"completion", shell});

        EXPECT_EQ(run.m_ExitCode, RESULT_OK);
        for (const CCommand& command : CommandTable())
        {
            SCOPED_TRACE(CommandTitle(command));
            EXPECT_THAT(run.m_Output, HasSubstr(command.m_Group));
            EXPECT_THAT(run.m_Output, HasSubstr(command.m_Verb));
            for (const CCommandOption& option : command.m_Options)
                EXPECT_THAT(run.m_Output, HasSubstr(option.m_Name));
        }
    }
}

TEST(CompletionTest, ManualPageHasASectionForEveryCommand)
{
    const CToolRun run = RunTool({"man"});

    EXPECT_EQ(run.m_ExitCode, RESULT_OK);
    EXPECT_THAT(run.m_Output, testing::StartsWith(".TH UTILITY 1"));
    for (const CCommand& command : CommandTable())
    {
        std::string title = CommandTitle(command);
        if (const std::size_t dash = title.find('-'); dash != std::string::npos)
            title.insert(dash, "\\"); // as the page writes a dash that is none of a line's end
        EXPECT_THAT(run.m_Output, HasSubstr("\n.SS utility " + title + " "));
    }
}

} // namespace utility
