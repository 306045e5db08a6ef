#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

const std::string COLOURS = "{FORM}Colours|\"\"\"Grid\"\":\"\"12\"\":\"|\r\n";

TEST(RegistryFormCommandsTest, FormsGoIntoAKeyAndBackToAFile)
{
    const CToolSandbox tool;
    tool.GetFolder().MakeFile(u"in.txt", COLOURS + "{FORM}Fonts|Body:Sans \xCE\xA9|\r\n");
    const std::string app = "Makers/Board";

    EXPECT_EQ(tool.Run({"form", "import", "in.txt", "Styles", "--app", app}).m_ExitCode, 0);
    EXPECT_EQ(tool.Run({"settings", "get", "Styles\\{FORM}Colours", "--app", app}).m_Output,
              "\"\"\"Grid\"\":\"\"12\"\":\"|\n");
    EXPECT_EQ(tool.Run({"form", "export", "Styles", "out.txt"}).m_ExitCode, 3)
        << "another program's";
    EXPECT_EQ(tool.Run({"form", "export", "Styles", "out.txt", "--app", app}).m_ExitCode, 0);

    EXPECT_EQ(tool.GetFolder().Read(u"out.txt"),
              COLOURS + "{FORM}Fonts|\"\"\"Body\"\":\"\"Sans \xCE\xA9\"\":\"|\r\n");
}

TEST(RegistryFormCommandsTest, AnImportReplacesFormsOfItsNamesAlone)
{
    const CToolSandbox tool;
    tool.GetFolder().MakeFile(u"a.txt", "{FORM}A|k:1|\n{FORM}B|k:1|\n");
    tool.GetFolder().MakeFile(u"b.txt", "{FORM}B|k:2|\n");
    ASSERT_EQ(tool.Run({"settings", "set", "Styles\\plain", "x"}).m_ExitCode, 0);
    ASSERT_EQ(tool.Run({"form", "import", "a.txt", "Styles"}).m_ExitCode, 0);
    ASSERT_EQ(tool.Run({"form", "import", "b.txt", "Styles"}).m_ExitCode, 0);

    EXPECT_EQ(tool.Run({"form", "export", "Styles", "out.txt"}).m_ExitCode, 0);

    EXPECT_EQ(tool.GetFolder().Read(u"out.txt"), "{FORM}A|\"\"\"k\"\":\"\"1\"\":\"|\r\n"
                                                 "{FORM}B|\"\"\"k\"\":\"\"2\"\":\"|\r\n");
    EXPECT_EQ(tool.Run({"settings", "get", "Styles\\plain"}).m_Output, "x\n");
}

TEST(RegistryFormCommandsTest, AFileThatAKeyCouldNotGiveBackIsRefusedByName)
{
    struct
    {
        const char* m_Case;
        std::string m_Bytes;
        std::string m_Errors;
    } const rows[] = {
        {"nothing", "", "utility: a.txt: there are no forms\n"},
        {"a pair without a value", "{FORM}A|k:1|\n{FORM}B|k:|\n",
         "utility: a.txt: what follows form 1 is no form\n"},
        {"a text too long", "{FORM}A|k:1|\n{FORM}B|k:" + std::string(1100, 'x') + "|\n",
         "utility: {FORM}B: it is longer than the 1023 characters that a key gives back; nothing "
         "is written\n"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Case);
        const CToolSandbox tool;
        tool.GetFolder().MakeFile(u"a.txt", row.m_Bytes);

        const CToolRun run = tool.Run({"form", "import", "a.txt", "Styles"});

        EXPECT_EQ(run.m_ExitCode, 3);
        EXPECT_EQ(run.m_Errors.substr(0, row.m_Errors.size()), row.m_Errors);
        EXPECT_EQ(tool.Run({"settings", "list", "Styles"}).m_ExitCode, 1) << "nothing is stored";
    }
}

TEST(RegistryFormCommandsTest, AKeyThatAFileCouldNotGiveBackIsRefusedByName)
{
    struct
    {
        const char* m_Case;
        std::string m_Name;
        std::string m_Text;
        std::string m_Reason;
    } const rows[] = {
        {"a line end", "{FORM}A", "k:\"1\n2\"|", "a line end in pair \"k\" would end the form"},
        {"a bar in the name", "{FORM}A|B", "k:1|", "its name holds \"|\""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Case);
        const CToolSandbox tool;
        tool.GetFolder().MakeFile(u"out.txt", "old");
        ASSERT_EQ(tool.Run({"settings", "set", "Styles\\" + row.m_Name, row.m_Text}).m_ExitCode, 0);

        const CToolRun run = tool.Run({"form", "export", "Styles", "out.txt"});

        EXPECT_EQ(run.m_ExitCode, 3);
        EXPECT_EQ(run.m_Errors,
                  "utility: " + row.m_Name + ": " + row.m_Reason + "; nothing is written\n");
        EXPECT_EQ(tool.GetFolder().Read(u"out.txt"), "old");
    }
}

TEST(RegistryFormCommandsTest, PlacesThatFailAreTold)
{
    const CToolSandbox tool;
    EXPECT_EQ(tool.Run({"form", "import", "none.txt", "Styles"}).m_Errors,
              "utility: none.txt: the file cannot be read\n");
    EXPECT_EQ(tool.Run({"form", "export", "None", "out.txt"}).m_Errors,
              "utility: None: there are no forms\n");
    ASSERT_EQ(tool.Run({"settings", "set", "Styles\\{FORM}A", "k:1"}).m_ExitCode, 0);
    const CToolRun run = tool.Run({"form", "export", "Styles", "no/out.txt"});
    EXPECT_EQ(run.m_ExitCode, 3);
    EXPECT_EQ(run.m_Errors, "utility: the forms could not be written\n");
    EXPECT_EQ(tool.Run({"form", "import", "a.txt"}).m_ExitCode, 2);
}

} // namespace

} // namespace utility
