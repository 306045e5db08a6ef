#include "platform/base/Encoding.h"
#include "platform/base/collections/StringArray.h"
#include "settings/xml/XMLSettings.h"

#include "support/PrintText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>

using namespace utility;

namespace
{

/// The tree in one line: name, attributes in brackets, value behind "=", children in braces.
void Show(CXMLSettings& settings, void* handle, CString& text)
{
    text += settings.GetElementNameByHandle(handle);
    const CString& value = settings.GetElementValueByHandle(handle);
    if (!value.IsEmpty())
        text += u"=" + value;
    if (settings.GetChildCountByHandle(handle) == 0)
        return;
    text += u"{";
    for (int index = 0; index < settings.GetChildCountByHandle(handle); ++index)
    {
        text += index == 0 ? u"" : u",";
        Show(settings, settings.GetChildByHandle(handle, index), text);
    }
    text += u"}";
}

CString ShownTree(CXMLSettings& settings)
{
    CString text;
    Show(settings, settings.FindElementHandle(u""), text);
    return text;
}

void LoadLines(CXMLSettings& settings, std::initializer_list<const char16_t*> texts)
{
    CStringArray lines;
    for (const char16_t* text : texts)
        lines.Add(text);
    settings.LoadXML(&lines);
    EXPECT_EQ(lines.GetSize(), 0) << "the lines are used up";
}

TEST(XMLReadingTest, EveryConstructReadsAsLaidDown)
{
    struct
    {
        const char* m_Case;
        std::initializer_list<const char16_t*> m_Lines;
        const char16_t* m_Tree;
        bool m_HasError;
    } const rows[] = {
        {"nothing", {}, u"", false},
        {"text alone is dropped", {u"text"}, u"", false},
        {"text at the top", {u"text<a/>"}, u"=text{a}", false},
        {"a leaf", {u"<a>1</a>"}, u"{a=1}", false},
        {"an empty tag", {u"<a/><b></b>"}, u"{a,b}", false},
        {"a declaration", {u"<?xml version='1.0'?><a/>"}, u"{a}", false},
        {"a coded header", {u"<?xml version=&apos;1.0&apos; ?>", u"<a/>"}, u"{a}", false},
        {"a comment", {u"<a><!-- note --><b>1</b></a>"}, u"{a{b=1}}", false},
        {"a comment takes the text before it", {u"<a>text<!-- c --> more</a>"}, u"{a=more}", false},
        {"a comment over lines", {u"<a><!-- c", u"<b>", u"--><c/></a>"}, u"{a{c}}", false},
        {"its end cut by a line end is none", {u"<!-- c --", u"><a/>-->", u"<b/>"}, u"{b}", false},
        {"its start cut is a tag", {u"<!-", u"- c --><a/>"}, u"{!-- c --{a}}", true},
        {"a comment that never ends", {u"<a><!-- ", u"</a>"}, u"{a}", true},
        {"a tag over lines", {u"<na", u"me x=\"1", u"2\"", u">1</", u"name>"}, u"{name=1}", false},
        {"text over lines", {u"<a>one ", u"  two", u"three</a>"}, u"{a=one   twothree}", false},
        {"white space is no text", {u"<a>1 <b/> \t </a>"}, u"{a=1 {b}}", false},
        {"a later text replaces", {u"<a>1<b/>2</a>"}, u"{a=2{b}}", false},
        {"the blanks of the close tag", {u"<a>", u"  <b/>", u"2  </a>"}, u"{a=2  {b}}", false},
        {"a wrong close tag closes", {u"<a><b>1</x></y><c/>"}, u"{a{b=1},c}", false},
        {"a close tag at the top ends", {u"<a/></z><b/>"}, u"{a}", false},
        {"an element left open", {u"<a><b>1</b>"}, u"{a{b=1}}", true},
        {"a tag that never ends", {u"<a>1</a><b", u" x"}, u"{a=1}", false},
        {"the same inside", {u"<a><b", u" x"}, u"{a}", true},
        {"a close tag that closes itself", {u"<a></a/><b/>"}, u"{a,b}", false},
        {"a document type", {u"<!DOCTYPE x><a/>"}, u"{!DOCTYPE x{a}}", true},
        {"a name with blanks", {u"<a /><b c>1</b c>"}, u"{a ,b c=1}", false},
        {"one white space divides", {u"<a  b=\"1\"/><c\td=\"1\"/>"}, u"{a ,c}", false},
        {"blanks around =", {u"<a b = \"1\"/>"}, u"{a b}", false},
        {"= without a blank", {u"<a=1/>"}, u"{a=1}", false},
        {"no name", {u"<>1</><?><//>"}, u"{=1}", false},
        {"> in text", {u"<a>1 > 2</a>"}, u"{a=1 > 2}", false},
        {"> in an attribute ends the tag", {u"<a b=\">\">1</a>"}, u"{a=\">1}", false},
        {"entities stay without encodings", {u"<a>&amp;&#65;</a>"}, u"{a=&amp;&#65;}", false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Case);
        CXMLSettings settings;
        LoadLines(settings, row.m_Lines);

        EXPECT_EQ(ShownTree(settings), row.m_Tree);
        EXPECT_EQ(settings.HasParseError(), row.m_HasError);
        EXPECT_FALSE(settings.IsEmpty());
    }
}

TEST(XMLReadingTest, AttributesAreKeptAsTheyStand)
{
    struct
    {
        const char16_t* m_Tag;
        const char16_t* m_Written;
    } const rows[] = {
        {u"<a b=\"1\" c='2'/>", u"<a b=\"1\" c='2'/>"}, {u"<a b = \"1\"/>", u"<a b = \"1\"/>"},
        {u"<a  b=\"1\"></a>", u"<a  b=\"1\"/>"},        {u"<a\tb=\"1\" />", u"<a b=\"1\" />"},
        {u"<a b=\"&amp;<\"/>", u"<a b=\"&amp;<\"/>"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Tag)));
        CXMLSettings settings;
        LoadLines(settings, {row.m_Tag});
        CStringArray lines;
        EXPECT_TRUE(settings.SaveXML(&lines, -2));
        ASSERT_EQ(lines.GetSize(), 1);
        EXPECT_EQ(lines[0], CString(row.m_Written) + u"\n");
    }
}

TEST(XMLReadingTest, FilesOfMixedLineEndsAndForeignBytesAreRead)
{
    struct
    {
        const char* m_Case;
        std::string_view m_Bytes;
        const char16_t* m_Tree;
    } const rows[] = {
        {"empty", "", u""},
        {"a mark alone", "\xEF\xBB\xBF", u""},
        {"mixed line ends", "<a>\r\n<b>1</b>\n<c>2</c>\r</a>", u"{a{b=1,c=2}}"},
        {"bad UTF-8", "<a>\xFFx\xED\xA0\x80</a>", u"{a=\xFFFDx\xFFFD\xFFFD\xFFFD}"},
        {"UTF-16", std::string_view("\xFF\xFE<\0a\0/\0>\0", 10), u"{a}"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Case);
        const CTemporaryFolder folder;
        CXMLSettings settings(folder.MakeFile(u"a.xml", row.m_Bytes), false);
        EXPECT_EQ(ShownTree(settings), row.m_Tree);
        EXPECT_FALSE(settings.IsEmpty());
        EXPECT_FALSE(settings.HasParseError());
    }
}

// Depth costs memory alone: loading, copying, saving and giving up a tree.
TEST(XMLReadingTest, AHundredThousandLevelsAreNoDepthAtAll)
{
    constexpr int LEVELS = 100000;
    CString line;
    for (int level = 0; level < LEVELS; ++level)
        line += u"<a>";
    line += u"1";
    for (int level = 0; level < LEVELS; ++level)
        line += u"</a>";
    CXMLSettings settings;
    CStringArray lines;
    lines.Add(line);
    settings.LoadXML(&lines);
    EXPECT_FALSE(settings.HasParseError());

    CXMLSettings copy;
    EXPECT_TRUE(copy.CopyKey(settings, u"a", false));
    CString path = u"a";
    for (int level = 1; level < LEVELS; ++level)
        path += u"\\a";
    CString value;
    EXPECT_TRUE(copy.GetValue(u"", path, value));
    EXPECT_EQ(value, u"1");
    EXPECT_FALSE(copy.KeyExists(path + u"\\a"));
    CString written;
    copy.WriteXMLtoString(written);
    EXPECT_EQ(written.GetLength(), 40 + 2 * (LEVELS - 1) * 4 + (LEVELS - 1) + 9);
}

TEST(XMLReadingTest, LongInputsTakeLinearTime)
{
    // Each is some ten million units; a second look at all of it for every step would never end.
    constexpr int SIZE = 10000000;
    CString elements;
    while (elements.GetLength() < SIZE)
        elements += u"<a>1</a>";
    CStringArray openTag;
    openTag.Add(u"<a b=\"");
    CStringArray openComment;
    openComment.Add(u"<!--");
    for (int index = 0; index < SIZE / 20; ++index)
    {
        openTag.Add(u"12345678901234567890");
        openComment.Add(u"<a>345678901234567890");
    }
    CStringArray oneLine;
    oneLine.Add(elements);
    CStringArray longAttribute;
    longAttribute.Add(u"<a b=\"" + CString(u'x', SIZE) + u"\"/>");

    CXMLSettings settings;
    settings.LoadXML(&oneLine);
    EXPECT_EQ(settings.GetChildCountByHandle(settings.FindElementHandle(u"")), SIZE / 8);
    settings.LoadXML(&openTag);
    EXPECT_EQ(settings.GetChildCountByHandle(settings.FindElementHandle(u"")), 0);
    settings.LoadXML(&openComment);
    EXPECT_EQ(settings.GetChildCountByHandle(settings.FindElementHandle(u"")), 0);
    settings.LoadXML(&longAttribute);
    EXPECT_EQ(
        settings.GetAttributeValueByHandle(settings.FindElementHandle(u"a"), u"B").GetLength(),
        SIZE);
}

} // namespace
