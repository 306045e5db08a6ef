#include "utility/xml/XmlPeer.h"

#include "platform/base/Encoding.h"

#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

std::vector<CString> LinesOf(std::string_view text)
{
    std::vector<CString> lines;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n'))
    {
        lines.push_back(FromUtf8(text.substr(0, end)));
        text.remove_prefix(end + 1);
    }
    if (!text.empty())
        lines.push_back(FromUtf8(text));
    return lines;
}

/// "line:column reason" of each, one a line.
std::string Shown(const std::vector<CXmlFault>& faults)
{
    std::string shown;
    for (const CXmlFault& fault : faults)
        shown += std::to_string(fault.m_Line) + ":" + std::to_string(fault.m_Column) + " " +
                 ToUtf8(fault.m_Reason.View()) + "\n";
    return shown;
}

TEST(XmlPeerTest, EachConstructThatIsReadOtherwiseIsNamedAtItsPlace)
{
    struct
    {
        const char* m_Case;
        std::string_view m_Text;
        const char* m_Differences;
    } const rows[] = {
        {"what the writer writes",
         "<?xml version='1.0' encoding='UTF-8' ?>\n<a x=\"1\">\n    <b>1 &amp; \xCE\xA9</b>\n    "
         "<c/>\n</a>\n",
         ""},
        {"a comment", "<a><!-- <b> --></a>", ""},
        {"an instruction", "<?style x?><a>1</a>", ""},
        {"references", "<a>&#65;&#x3A9;&lt;&quot;</a>", ""},
        {"a blank in an empty tag", "<a />", "1:1 this element is called \"a \", not \"a\"\n"},
        {"a blank in an open tag", "<a >1</a>", "1:1 this element is called \"a \", not \"a\"\n"},
        {"a tag over lines", "<a>\n<b\nc=\"1\"/></a>",
         "2:1 this element is called \"bc=\"1\"\", not \"b\"\n"},
        {"two blanks", "<a  b=\"1\"/>", "1:1 this element is called \"a \", not \"a\"\n"},
        {"blanks around =", "<a b = \"1\"/>", "1:1 this element is called \"a b\", not \"a\"\n"},
        {"single quotes", "<a b='1'/>", "1:1 attribute \"b\" reads as \"\", not \"1\"\n"},
        {"a coded attribute", "<a b=\"&amp;\"/>",
         "1:1 attribute \"b\" reads as \"&amp;\", not \"&\"\n"},
        {"attributes that differ by case", "<a b=\"1\" B=\"2\"/>",
         "1:1 attribute \"b\" reads as \"2\", not \"1\"\n"},
        {"> in an attribute", "<a>\n<b c=\">\"/></a>",
         "2:1 attribute \"c\" reads as \"\", not \">\"\n"},
        {"a document type", "<!DOCTYPE a><a/>", "1:1 this document type is read as an element\n"},
        {"raw text", "<a><![CDATA[<b>]]></a>", "1:4 this CDATA section is read as an element\n"},
        {"a tag in an instruction", "<?x <a> ?><b/>",
         "1:1 this instruction is read as an element\n"},
        {"line ends", "<a>one\n two</a>", "1:4 the line ends of this text are dropped\n"},
        {"text before a comment", "<a>\xC3\xA9 x<!-- c --></a>",
         "1:4 this text is lost to the comment behind it\n"},
        {"text around a child", "<a>1<b/> 2</a>",
         "1:4 this text is replaced by a later one of the same element\n"},
        {"white space alone", "<a> </a>", "1:4 white space alone is no value\n"},
        {"white space between", "<a> <b/>\n</a>", ""},
        {"another encoding", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA9</a>",
         "1:1 the file declares ISO-8859-1, which is not looked at\n"},
        {"in ASCII", "<?xml version='1.0' encoding='ISO-8859-1'?><a>e</a>", ""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Case);
        const std::string shown = Shown(CompareWithGeneralReader(LinesOf(row.m_Text)));
        EXPECT_EQ(shown.substr(0, std::string(row.m_Differences).size()), row.m_Differences);
        EXPECT_EQ(shown.empty(), std::string(row.m_Differences).empty()) << shown;
    }
}

TEST(XmlPeerTest, TheFirstThatIsRefusedIsTheLast)
{
    struct
    {
        const char* m_Case;
        std::string_view m_Text;
        const char* m_Differences;
    } const rows[] = {
        {"nothing", "", "1:1 a general reader refuses this: no element found\n"},
        {"two tops", "<a/>\n<b />",
         "2:1 a general reader refuses this: junk after document element\n"},
        {"text at the top", "<a/>x",
         "1:5 a general reader refuses this: junk after document element\n"},
        {"an unknown entity", "<a >\n&nbsp;</a><b />",
         "1:1 this element is called \"a \", not \"a\"\n"
         "2:1 a general reader refuses this: undefined entity\n"},
        {"another close tag", "<a></b>", "1:6 a general reader refuses this: mismatched tag\n"},
        {"< in a text", "<a>1 < 2</a>",
         "1:7 a general reader refuses this: not well-formed (invalid token)\n"},
        {"a control", "<a>\x01</a>",
         "1:4 a general reader refuses this: not well-formed (invalid token)\n"},
        {"an attribute twice", "<a b=\"1\" b=\"1\"/>",
         "1:10 a general reader refuses this: duplicate attribute\n"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Case);
        EXPECT_EQ(Shown(CompareWithGeneralReader(LinesOf(row.m_Text))), row.m_Differences);
    }
}

TEST(XmlPeerTest, DepthLengthAndEntitiesCostNoMoreThanTheFile)
{
    std::string deep;
    std::string bomb = "<!DOCTYPE a [<!ENTITY e0 \"x\">";
    for (int level = 0; level < 100000; ++level)
        deep += "<a>";
    for (int level = 1; level < 40; ++level)
        bomb += "<!ENTITY e" + std::to_string(level) + " \"&e" + std::to_string(level - 1) + ";&e" +
                std::to_string(level - 1) + ";\">";
    bomb += "]><a>&e39;</a>";

    EXPECT_EQ(CompareWithGeneralReader(LinesOf(deep)).size(), 1U);
    EXPECT_EQ(CompareWithGeneralReader(LinesOf(bomb)).front().m_Column, 1);
    EXPECT_EQ(
        CompareWithGeneralReader(LinesOf("<a b=\"" + std::string(10'000'000, 'x') + "\"/>")).size(),
        0U);
}

TEST(XmlPeerTest, TheVerbPrintsBothKindsAndEndsAccordingly)
{
    const CToolSandbox tool;
    tool.GetFolder().MakeFile(u"same.xml", "<a>1</a>");
    tool.GetFolder().MakeFile(u"other.xml", "<a>1<b/>2</a>");
    tool.GetFolder().MakeFile(u"open.xml", "<a />\n<b>");

    const CToolRun same = tool.Run({"xml", "check", "same.xml"});
    EXPECT_EQ(same.m_ExitCode, 0);
    EXPECT_EQ(same.m_Output, "same.xml: 1 elements\n");
    const CToolRun other = tool.Run({"xml", "check", "same.xml", "other.xml"});
    EXPECT_EQ(other.m_ExitCode, 1);
    EXPECT_EQ(other.m_Output,
              "same.xml: 1 elements\n"
              "other.xml:1:4: this text is replaced by a later one of the same element\n"
              "other.xml: 2 elements\n");
    const CToolRun open = tool.Run({"xml", "check", "open.xml", "same.xml"});
    EXPECT_EQ(open.m_ExitCode, 3);
    EXPECT_EQ(open.m_Output,
              "open.xml:1:1: this element is called \"a \", not \"a\"\n"
              "open.xml:2:1: a general reader refuses this: junk after document element\n"
              "same.xml: 1 elements\n");
    EXPECT_EQ(open.m_Errors,
              "utility: open.xml:2:1: <b> is not closed before the end of the file\n");
}

// Exported settings are read alike by every XML reader.
TEST(XmlPeerTest, ExportedSettingsReadAlike)
{
    const CToolSandbox tool;
    tool.Run(
        {"settings", "set", "View\\1st name <\xCE\xA9>", " R&D \"\xF0\x9F\x98\x80\"\n_x0041_ "});
    tool.Run({"settings", "set", "View\\empty", ""});
    tool.Run({"settings", "set", "View\\Grid\\n", "5", "--type", "number"});
    ASSERT_EQ(tool.Run({"settings", "save", "a.xml", "--format", "xml"}).m_ExitCode, 0);

    const CToolRun run = tool.Run({"xml", "check", "a.xml"});

    EXPECT_EQ(run.m_ExitCode, 0) << run.m_Output;
}

} // namespace

} // namespace utility
