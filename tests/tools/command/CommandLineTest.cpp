#include "utility/command/CommandLine.h"

#include "tools/ToolProcess.h"
#include "utility/command/CommandHelp.h"
#include "utility/command/CommandTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace utility
{

namespace
{

using testing::HasSubstr;
using testing::StartsWith;

/// The words that name a command.
std::vector<std::string> NamesOf(const CCommand& command)
{
    std::vector<std::string> words = {command.m_Group};
    if (*command.m_Verb != '\0')
        words.emplace_back(command.m_Verb);
    return words;
}

} // namespace

TEST(CommandLineTest, HelpOfTheProgramNamesEveryGroupAndGlobalOption)
{
    const CToolRun run = RunTool({"--help"});

    EXPECT_EQ(run.m_ExitCode, RESULT_OK);
    EXPECT_EQ(run.m_Errors, "");
    for (const std::string& group : GroupNames())
        EXPECT_THAT(run.m_Output, HasSubstr("\n  " + group + " "));
    for (const CCommandOption& option : GlobalOptions())
        EXPECT_THAT(run.m_Output, HasSubstr("\n  " + OptionForm(option)));
}

TEST(CommandLineTest, HelpOfEveryCommandNamesItsArgumentsAndOptions)
{
    for (const CCommand& command : CommandTable())
    {
        SCOPED_TRACE(CommandTitle(command));
        std::vector<std::string> words = NamesOf(command);
        words.emplace_back("--help");

        const CToolRun run = RunTool(words);

        EXPECT_EQ(run.m_ExitCode, RESULT_OK);
        EXPECT_THAT(run.m_Output, StartsWith("Usage: " + CommandUsage(command) + "\n"));
        for (const CCommandArgument& argument : command.m_Arguments)
            EXPECT_THAT(run.m_Output, HasSubstr(std::string("\n  ") + argument.m_Name));
        for (const CCommandOption& option : command.m_Options)
            EXPECT_THAT(run.m_Output, HasSubstr("\n  " + OptionForm(option)));
    }
}

TEST(CommandLineTest, HelpFlowsWithinItsWidthAndExamplesStandAsTheyAre)
{
    const std::string example = "    g v  two  blanks" + std::string(80, '.');
    const std::string sentence =
        "Twenty letters a line here,\nfor once, and then for ever more until "
        "the width is\nreached at last.";
    const std::string help = sentence + "\n\n" + example + "\nEnd\nof it.";

    EXPECT_THAT(CommandHelp({"g", "v", "What it does", help.c_str()}),
                HasSubstr("\n\nTwenty letters a line here, for once, and then for ever more until "
                          "the width is\nreached at last.\n\n" +
                          example + "\nEnd of it.\n"));
}

TEST(CommandLineTest, HelpOfEveryGroupNamesItsVerbs)
{
    for (const std::string& group : GroupNames())
    {
        SCOPED_TRACE(group);

        const CToolRun run = RunTool({group, "--help"});

        EXPECT_EQ(run.m_ExitCode, RESULT_OK);
        for (const CCommand* command : CommandsOfGroup(group))
            EXPECT_THAT(run.m_Output, HasSubstr(command->m_Verb));
    }
}

TEST(CommandLineTest, WrongLinesAreUsageErrorsThatSayWhatIsWrong)
{
    const struct
    {
        const char* m_What;
        std::vector<std::string> m_Words;
        const char* m_Told;
    } rows[] = {
        {"nothing", {}, "a group is missing; see 'utility --help'"},
        {"unknown group", {"mann"}, "there is no group 'mann', did you mean 'man'?"},
        {"far from any group", {"qqqqqq"}, "there is no group 'qqqqqq'; see"},
        {"empty group", {""}, "there is no group ''"},
        {"unknown option", {"man", "--jsn"}, "there is no option '--jsn', did you mean '--json'?"},
        {"unknown global option", {"--jsn"}, "did you mean '--json'? See 'utility --help'"},
        {"missing argument", {"completion"}, "SHELL is required; see 'utility completion --help'"},
        {"too many arguments", {"completion", "bash", "extra"}, "'extra' is one argument too many"},
        {"wrong choice", {"completion", "tcsh"}, "tcsh"},
        {"missing value", {"man", "--app"}, "--app needs a value"},
        {"no company and name", {"man", "--app", "Maker"}, "--app takes COMPANY/NAME"},
        {"no name", {"man", "--app", "Maker/"}, "--app takes COMPANY/NAME"},
        {"no company", {"man", "--app", "/Tool"}, "--app takes COMPANY/NAME"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_What);

        const CToolRun run = RunTool(row.m_Words);

        EXPECT_EQ(run.m_ExitCode, RESULT_USAGE);
        EXPECT_THAT(run.m_Errors, StartsWith("utility: "));
        EXPECT_THAT(run.m_Errors, HasSubstr(row.m_Told));
        EXPECT_EQ(run.m_Output, "");
    }
}

TEST(CommandLineTest, UnknownVerbIsAUsageErrorWithAHint)
{
    for (const std::string& group : GroupNames())
    {
        const CCommand& first = *CommandsOfGroup(group).front();
        if (*first.m_Verb == '\0')
            continue;
        SCOPED_TRACE(CommandTitle(first));

        const CToolRun run = RunTool({group, std::string(first.m_Verb) + "x"});

        EXPECT_EQ(run.m_ExitCode, RESULT_USAGE);
        EXPECT_THAT(run.m_Errors, HasSubstr("there is no verb"));
        EXPECT_THAT(run.m_Errors, HasSubstr(std::string("did you mean '") + first.m_Verb + "'"));
        EXPECT_EQ(RunTool({group}).m_ExitCode, RESULT_USAGE);
    }
}

TEST(CommandLineTest, GlobalOptionsStandBeforeOrBehindTheNames)
{
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"--json", "--app", "Maker/Tool", "completion", "bash"},
          std::vector<std::string>{"completion", "--app=Maker/Tool", "bash", "--json"}})
    {
        SCOPED_TRACE(words.front());

        const CCommandLine line = ReadCommandLine(words);

        ASSERT_NE(line.m_Command, nullptr);
        EXPECT_TRUE(line.m_Call.WantsJson());
        EXPECT_FALSE(line.m_Call.SaysYes());
        EXPECT_TRUE(line.m_Call.Get("app") == u"Maker/Tool");
        ASSERT_EQ(line.m_Call.GetArguments().size(), 1U);
        EXPECT_TRUE(line.m_Call.GetArgument(0) == u"bash");
        EXPECT_TRUE(line.m_Call.GetArgument(1, u"preset") == u"preset");
    }
}

TEST(CommandLineTest, ArgumentsAndValuesArriveAsTheyWereTyped)
{
    const CCommand command = {
        .m_Group = "try",
        .m_Arguments = {{"PATTERN", ""}, {"NAME", "", EArity::Any}},
        .m_Options = {{"where", "TEXT", "", true}, {"limit", "COUNT"}, {"next"}}};
    const struct
    {
        const char* m_What;
        std::vector<std::string> m_Words;
        std::vector<CString> m_Arguments;
        std::vector<CString> m_Where;
        CString m_Limit;
    } rows[] = {
        {"many names", {"a", "b", "c", "d"}, {u"a", u"b", u"c", u"d"}, {}, {}},
        {"lists stay whole",
         {"[a,b]", "[c]", "--where", "[1,2]"},
         {u"[a,b]", u"[c]"},
         {u"[1,2]"},
         {}},
        {"empty and blank", {"", "b", "", "c d"}, {u"", u"b", u"", u"c d"}, {}, {}},
        {"negative numbers", {"-2+3", "-5", "--where", "-7"}, {u"-2+3", u"-5"}, {u"-7"}, {}},
        {"dashes behind the mark", {"--", "-R", "--next"}, {u"-R", u"--next"}, {}, {}},
        {"a lone dash", {"-", "x"}, {u"-", u"x"}, {}, {}},
        {"repeated", {"a", "--where", "x", "b", "--where=y|z"}, {u"a", u"b"}, {u"x", u"y|z"}, {}},
        {"the last one counts", {"--limit", "1", "a", "--limit=2"}, {u"a"}, {}, u"2"},
        {"marks of the shell",
         {"{1}", "x'y", "\"q\"", "%{d%}"},
         {u"{1}", u"x'y", u"\"q\"", u"%{d%}"},
         {},
         {}},
        {"names of groups", {"man", "completion"}, {u"man", u"completion"}, {}, {}},
        {"beyond ASCII", {"\xCE\xA9"}, {u"\u03A9"}, {}, {}},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_What);

        const CCommandLine line = ReadCommand(command, row.m_Words);

        ASSERT_EQ(line.m_Command, &command);
        EXPECT_EQ(line.m_Call.GetArguments(), row.m_Arguments);
        EXPECT_EQ(line.m_Call.GetAll("where"), row.m_Where);
        EXPECT_TRUE(line.m_Call.Get("limit") == row.m_Limit);
        EXPECT_FALSE(line.m_Call.Has("next"));
    }
}

TEST(CommandLineTest, VersionIsOneLine)
{
    const CToolRun run = RunTool({"--version"});

    EXPECT_EQ(run.m_ExitCode, RESULT_OK);
    EXPECT_THAT(run.m_Output, testing::MatchesRegex("utility [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(CommandLineTest, EveryEntryOfTheTableIsComplete)
{
    std::vector<std::string> titles;
    for (const CCommand& command : CommandTable())
    {
        SCOPED_TRACE(CommandTitle(command));
        EXPECT_NE(command.m_Run, nullptr);
        EXPECT_NE(*command.m_Summary, '\0');
        EXPECT_NE(std::string(command.m_Summary).back(), '.');
        for (const CCommandOption& option : command.m_Options)
        {
            for (const CCommandOption& global : GlobalOptions())
                EXPECT_STRNE(option.m_Name, global.m_Name);
        }
        titles.push_back(CommandTitle(command));
    }
    std::sort(titles.begin(), titles.end());
    EXPECT_EQ(std::adjacent_find(titles.begin(), titles.end()), titles.end());
}

} // namespace utility
