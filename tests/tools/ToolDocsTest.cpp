#include "tools/ToolProcess.h"
#include "utility/command/CommandHelp.h"
#include "utility/command/CommandTable.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace utility
{

namespace
{

constexpr const char* PROMPT = "$ ";

/// A line that the reader is to type, and what it prints.
struct CExample
{
    int m_Line = 0; // in the page
    std::string m_Typed;
    std::string m_Printed;
};

/// The examples of a page: the lines of its "console" blocks.
std::vector<CExample> ReadExamples(std::istream& page)
{
    std::vector<CExample> examples;
    bool isConsole = false;
    int number = 0;
    for (std::string line; std::getline(page, line);)
    {
        number++;
        if (line.starts_with("```"))
            isConsole = line == "```console";
        else if (isConsole && line.starts_with(PROMPT))
            examples.push_back({number, line.substr(2), {}});
        else if (isConsole && !examples.empty())
            examples.back().m_Printed += line + "\n";
    }
    return examples;
}

std::vector<CExample> PageExamples(const char* name)
{
    const std::filesystem::path root = std::filesystem::path(UTILITY_TEST_DATA) / ".." / "..";
    std::ifstream page(root.lexically_normal() / name);
    return ReadExamples(page);
}

} // namespace

TEST(ToolDocsTest, ExamplesPrintWhatThePageShows)
{
    for (const char* const name : {"docs/tool.md", "README.md"})
    {
        const CToolSandbox sandbox;
        const std::vector<CExample> examples = PageExamples(name);
        EXPECT_FALSE(examples.empty()) << name;
        for (const CExample& example : examples)
        {
            SCOPED_TRACE(std::string(name) + ":" + std::to_string(example.m_Line));

            const CToolRun run = sandbox.RunLine(example.m_Typed + " 2>&1");

            EXPECT_EQ(run.m_Output, example.m_Printed);
        }
    }
}

TEST(ToolDocsTest, EveryCommandHasAnExample)
{
    const std::vector<CExample> examples = PageExamples("docs/tool.md");
    for (const CCommand& command : CommandTable())
    {
        const std::string words = "utility " + CommandTitle(command);
        const auto shows = [&](const CExample& example)
        {
            return (example.m_Typed + " ").find(words + " ") != std::string::npos;
        };
        EXPECT_TRUE(std::any_of(examples.begin(), examples.end(), shows))
            << "docs/tool.md needs a console block with '" << PROMPT << words << " ...'";
    }
}

} // namespace utility
