#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

const std::string HEADER = "<?xml version='1.0' encoding='UTF-8' ?>\r\n";

TEST(XmlCommandsTest, ValuesAreStoredShownFoundAndDeleted)
{
    const CToolSandbox tool;
    EXPECT_EQ(tool.Run({"xml", "set", "a.xml", "a\\b", "R&D \xCE\xA9"}).m_ExitCode, 0);
    EXPECT_EQ(tool.GetFolder().Read(u"a.xml"),
              HEADER + "<a>\r\n    <b>R&amp;D \xCE\xA9</b>\r\n</a>\r\n");
    EXPECT_EQ(tool.Run({"xml", "get", "a.xml", "A\\B"}).m_Output, "R&D \xCE\xA9\n");
    EXPECT_EQ(tool.Run({"xml", "get", "a.xml", "A\\B", "--json"}).m_Output, "\"R&D \xCE\xA9\"\n");
    EXPECT_EQ(tool.Run({"xml", "get", "a.xml", "a\\c"}).m_ExitCode, 1);
    EXPECT_EQ(tool.Run({"xml", "list", "a.xml", "a", "--json"}).m_Output,
              "[{\"name\": \"b\", \"value\": \"R&D \xCE\xA9\", \"children\": 0}]\n");
    EXPECT_EQ(tool.Run({"xml", "list", "a.xml", "c"}).m_ExitCode, 1);
    EXPECT_EQ(tool.Run({"xml", "delete", "a.xml", "a\\b"}).m_ExitCode, 0);
    EXPECT_EQ(tool.GetFolder().Read(u"a.xml"), HEADER + "<a/>\r\n");
    EXPECT_EQ(tool.Run({"xml", "delete", "a.xml", "a\\b"}).m_ExitCode, 1);
    EXPECT_EQ(tool.Run({"xml", "delete", "a.xml", ""}).m_ExitCode, 1) << "the root stays";
}

TEST(XmlCommandsTest, EncodingsAndDuplicatesAreTheCallers)
{
    const CToolSandbox tool;
    EXPECT_EQ(tool.Run({"xml", "set", "a.xml", "a", "<", "--encodings", "0"}).m_ExitCode, 0);
    EXPECT_EQ(tool.GetFolder().Read(u"a.xml"), HEADER + "<a><</a>\r\n");
    tool.GetFolder().MakeFile(u"b.xml", "<a>&amp;</a>");
    EXPECT_EQ(tool.Run({"xml", "get", "b.xml", "a"}).m_Output, "&\n");
    EXPECT_EQ(tool.Run({"xml", "get", "b.xml", "a", "--encodings", "0"}).m_Output, "&amp;\n");
    EXPECT_EQ(tool.Run({"xml", "set", "b.xml", "a", "2", "--duplicates"}).m_ExitCode, 0);
    EXPECT_EQ(tool.GetFolder().Read(u"b.xml"), HEADER + "<a>&amp;</a>\r\n<a>2</a>\r\n");
}

TEST(XmlCommandsTest, ElementsAreFoundByTheirAttributes)
{
    const CToolSandbox tool;
    tool.GetFolder().MakeFile(u"a.xml",
                              "<r><p id=\"1\">in</p><p id=\"2\"><l Lang=\"DE\">x</l></p></r>");
    EXPECT_EQ(tool.Run({"xml", "find", "a.xml", "r\\p id=2\\l lang=de"}).m_Output, "x\n");
    EXPECT_EQ(tool.Run({"xml", "find", "a.xml", "r\\p id=1", "--json"}).m_Output,
              "{\"name\": \"p\", \"value\": \"in\", \"children\": 0}\n");
    EXPECT_EQ(tool.Run({"xml", "find", "a.xml", "r\\p id=3"}).m_ExitCode, 1);
}

TEST(XmlCommandsTest, ElementsAreCopiedAndMovedButNeverOverOthers)
{
    const CToolSandbox tool;
    tool.GetFolder().MakeFile(u"a.xml", "<r><p><q>1</q></p></r>");
    EXPECT_EQ(tool.Run({"xml", "copy", "a.xml", "b.xml", "r\\p"}).m_ExitCode, 0);
    EXPECT_EQ(tool.Run({"xml", "get", "b.xml", "r\\p\\q"}).m_Output, "1\n");
    EXPECT_EQ(tool.GetFolder().Read(u"a.xml"), "<r><p><q>1</q></p></r>") << "the source stays";
    const CToolRun taken = tool.Run({"xml", "move", "a.xml", "b.xml", "r\\p"});
    EXPECT_EQ(taken.m_ExitCode, 3);
    EXPECT_EQ(taken.m_Errors, "utility: b.xml: there is an element at r\\p already\n");
    EXPECT_EQ(tool.Run({"xml", "move", "a.xml", "c.xml", "r\\p"}).m_ExitCode, 0);
    EXPECT_EQ(tool.GetFolder().Read(u"a.xml"), HEADER + "<r/>\r\n");
    EXPECT_EQ(tool.Run({"xml", "move", "a.xml", "c.xml", "r\\p"}).m_ExitCode, 1);
    EXPECT_EQ(tool.Run({"xml", "copy", "none.xml", "c.xml", "r"}).m_ExitCode, 3);
}

// Every verb that saves, over every kind of file that would lose something.
TEST(XmlCommandsTest, WhatASaveWouldLoseIsRefusedWithoutForce)
{
    struct
    {
        std::string m_Bytes;
        std::string m_Reason;
    } const files[] = {
        {"<a>\n <b>1", ":1:1: <a> is not closed before the end of the file"},
        {"<a>1</a><b", ":1:9: this tag is not closed before the end of the file"},
        {"<a>1</a><!-- ", ":1:9: this comment is not closed before the end of the file"},
        {"<a>1</a></b><c/>", ":1:9: this closes nothing, and what follows is not read"},
        {"<a><b>1</c></a>", ":1:8: </c> closes <b>"},
        {"<a><!-- note -->1</a>", ": saving drops its comments"},
    };
    const std::vector<std::string> verbs[] = {{"set", "a.xml", "a", "2"},
                                              {"delete", "a.xml", "a"},
                                              {"format", "a.xml"},
                                              {"move", "a.xml", "b.xml", "a"},
                                              {"copy", "c.xml", "a.xml", "c"}};
    for (const auto& file : files)
    {
        for (std::vector<std::string> words : verbs)
        {
            SCOPED_TRACE(file.m_Bytes + " " + words.front());
            const CToolSandbox tool;
            tool.GetFolder().MakeFile(u"a.xml", file.m_Bytes);
            tool.GetFolder().MakeFile(u"c.xml", "<c/>");
            words.insert(words.begin(), "xml");

            const CToolRun refused = tool.Run(words);
            EXPECT_EQ(refused.m_ExitCode, 3);
            EXPECT_EQ(refused.m_Errors,
                      "utility: a.xml" + file.m_Reason + "; nothing is changed without --force\n");
            EXPECT_EQ(tool.GetFolder().Read(u"a.xml"), file.m_Bytes);
            EXPECT_FALSE(tool.GetFolder().Exists(u"b.xml"));

            words.emplace_back("--force");
            EXPECT_EQ(tool.Run(words).m_ExitCode, 0);
            EXPECT_NE(tool.GetFolder().Read(u"a.xml"), file.m_Bytes);
        }
    }
}

TEST(XmlCommandsTest, FilesThatCannotBeReadOrWrittenAreTold)
{
    const CToolSandbox tool;
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"xml", "get", "none.xml", "a"},
          {"xml", "list", "none.xml"},
          {"xml", "find", "none.xml", "a"},
          {"xml", "delete", "none.xml", "a"},
          {"xml", "format", "none.xml"},
          {"xml", "check", "none.xml"}})
    {
        SCOPED_TRACE(words[1]);
        const CToolRun run = tool.Run(words);
        EXPECT_EQ(run.m_ExitCode, 3);
        EXPECT_EQ(run.m_Errors, "utility: none.xml: the file cannot be read\n");
    }
    const CToolRun run = tool.Run({"xml", "set", "no/a.xml", "a", "1"});
    EXPECT_EQ(run.m_ExitCode, 3);
    EXPECT_EQ(run.m_Errors, "utility: no/a.xml: the file cannot be written\n");
}

} // namespace

} // namespace utility
