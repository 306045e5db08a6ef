#include "settings/form/FormImportReader.h"

#include "platform/base/Encoding.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <limits>

using namespace utility;

namespace
{

class FormImportReaderTest : public testing::Test
{
protected:
    bool Open(std::string_view text) { return m_Reader.Open(m_Folder.MakeFile(u"in.frm", text)); }

    // All tokens, brackets too, each in its own brackets.
    std::string Tokens(std::string_view text)
    {
        CFormImportReader reader;
        EXPECT_TRUE(reader.Open(m_Folder.MakeFile(u"tokens.frm", text)));
        std::string all;
        CString token;
        while (reader.ReadIgnoreForm(token))
            all += "[" + ToUtf8(token.View()) + "]";
        return all;
    }

    CString Value()
    {
        CString text = u"(preset)";
        m_Reader.Read(text);
        return text;
    }

    CTemporaryFolder m_Folder;
    CFormImportReader m_Reader;
};

TEST_F(FormImportReaderTest, CutsTokens)
{
    const struct
    {
        const char* text;
        const char* tokens;
    } rows[] = {{"(a(b)c)", "[(][a][(][b][)][c][)]"},
                {"(\"a b\" \"c\"d a\"b\")", "[(][a b][c][d][a\"b\"][)]"},
                {"(\"\" x)", "[(][][x][)]"},
                {"\"say \\\"no\\\" \\\\n \\n \\(\"", "[say \"no\" \\n \\n \\(]"},
                {"\"two\r\nlines\"x", "[twolines][x]"},
                {"\"never closed\n  at all", "[never closed  at all]"},
                {"\"a\\\nb\"", "[a\\b]"},           // an escape does not reach over a line's end
                {"\"a\\\n\\b\\\\\"", "[a\\\\b\\]"}, // two escapes, each at its line's edge
                {"a\\(b", "[a\\][(][b]"},
                {" \t\r\n\n (\f)\v", "[(][)]"},
                {"\xC2\xA0\xCE\xA9)", "[\xC2\xA0\xCE\xA9][)]"},
                {"", ""}};

    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(Tokens(row.text), row.tokens);
    }
}

TEST_F(FormImportReaderTest, KeepsLineEndsInQuotesWhenAsked)
{
    m_Reader.SetIncludeReturnInQuotedStrings();
    ASSERT_TRUE(Open("\"one\r\ntwo\n\nfour\""));

    EXPECT_EQ(Value(), u"one\ntwo\n\nfour");
}

TEST_F(FormImportReaderTest, ConvertsNumbersAndKeepsPresetsAtStructure)
{
    ASSERT_TRUE(Open("(n 12x -1 300 99999999999 99999999999 1e3 1e400 zz) 7"));
    EXPECT_EQ(m_Reader.FirstForm(), u"n");
    int whole = 0;
    unsigned wide = 0;
    unsigned char byte = 0;
    std::int64_t big = 0;
    double real = 0;
    EXPECT_TRUE(m_Reader.Read(whole));
    EXPECT_EQ(whole, 12);
    EXPECT_TRUE(m_Reader.Read(wide));
    EXPECT_EQ(wide, 4294967295u);
    EXPECT_TRUE(m_Reader.Read(byte));
    EXPECT_EQ(byte, 44);
    EXPECT_TRUE(m_Reader.Read(whole));
    EXPECT_EQ(whole, 2147483647);
    EXPECT_TRUE(m_Reader.Read(big));
    EXPECT_EQ(big, 99999999999);
    EXPECT_TRUE(m_Reader.Read(real));
    EXPECT_EQ(real, 1000);
    EXPECT_TRUE(m_Reader.Read(real));
    EXPECT_EQ(real, std::numeric_limits<double>::infinity());
    EXPECT_TRUE(m_Reader.Read(whole));
    EXPECT_EQ(whole, 0);

    whole = 5;
    EXPECT_FALSE(m_Reader.Read(whole)) << "the bracket";
    EXPECT_EQ(whole, 5);
    EXPECT_EQ(Value(), u"(preset)");
    m_Reader.CloseForm();
    EXPECT_TRUE(m_Reader.Read(whole));
    EXPECT_EQ(whole, 7);
    EXPECT_FALSE(m_Reader.Read(whole)) << "the end of the file";
}

TEST_F(FormImportReaderTest, FindsFormsInAnyCaseAndWithinALimit)
{
    const char* text = "(a (b (x 1)) (X 2) (y 3))";
    ASSERT_TRUE(Open(text));
    m_Reader.FirstForm();
    ASSERT_TRUE(m_Reader.FindForm(u"x", -1));
    EXPECT_EQ(Value(), u"1") << "inner levels too";

    ASSERT_TRUE(Open(text));
    m_Reader.FirstForm();
    EXPECT_FALSE(m_Reader.FindForm(u"y", 1)) << "one form only";
    EXPECT_TRUE(m_Reader.IsNextAForm()) << "inside b, before x";
}

TEST_F(FormImportReaderTest, PeeksWithoutLosingTheToken)
{
    ASSERT_TRUE(Open("(a \"(\"\n 5)"));
    m_Reader.FirstForm();

    EXPECT_EQ(m_Reader.Peek(), u"(");
    EXPECT_TRUE(m_Reader.IsNextAForm()) << "a peeked token keeps no memory of its quotes";
    CString text;
    ASSERT_TRUE(m_Reader.ReadIgnoreForm(text));
    EXPECT_EQ(text, u"(");
    EXPECT_TRUE(m_Reader.Peek(text));
    EXPECT_EQ(text, u"5");
    EXPECT_EQ(Value(), u"5");
    EXPECT_FALSE(m_Reader.Peek(text)) << "the form end";
    EXPECT_EQ(Value(), u"(preset)");
    m_Reader.CloseForm();
    EXPECT_EQ(m_Reader.Peek(), u"");
    EXPECT_FALSE(m_Reader.Read(text));
}

TEST_F(FormImportReaderTest, ReturnsToAMarkInEveryEncoding)
{
    const std::u16string_view text = u"(röt (Ω \"ä\" (first 1)) (second 2))";
    const struct
    {
        const char* name;
        std::string bytes;
    } files[] = {{"UTF-8", ToUtf8(text)},
                 {"UTF-8 with a mark", "\xEF\xBB\xBF" + ToUtf8(text)},
                 {"UTF-16", "\xFF\xFE" + std::string(reinterpret_cast<const char*>(text.data()),
                                                     text.size() * sizeof(char16_t))}};

    for (const auto& file : files)
    {
        SCOPED_TRACE(file.name);
        CFormImportReader reader;
        ASSERT_TRUE(reader.Open(m_Folder.MakeFile(u"mark.frm", file.bytes)));
        reader.FirstForm();
        ASSERT_TRUE(reader.FindForm(u"first", -1));
        reader.MarkPosition();
        CString rest;
        while (reader.ReadIgnoreForm(rest))
            continue;
        reader.ReturnToMark();

        ASSERT_TRUE(reader.ReadIgnoreForm(rest));
        EXPECT_EQ(rest, u"(");
        ASSERT_TRUE(reader.ReadIgnoreForm(rest));
        EXPECT_EQ(rest, u"first");
        ASSERT_TRUE(reader.ReadIgnoreForm(rest));
        EXPECT_EQ(rest, u"1");
    }
}

TEST_F(FormImportReaderTest, LooksAlongTheLine)
{
    ASSERT_TRUE(Open("(a one two  \n)"));
    m_Reader.FirstForm();
    EXPECT_TRUE(m_Reader.AnyMoreOnLine());
    CString rest;
    m_Reader.RestOfLine(rest);
    EXPECT_EQ(rest, u" one two");
    EXPECT_EQ(Value(), u"one");
    EXPECT_EQ(m_Reader.GetLineNumber(), 1);
    CStringList tokens;
    EXPECT_TRUE(m_Reader.ReadStringList(tokens));
    EXPECT_EQ(tokens.GetCount(), 1);
    EXPECT_EQ(tokens.GetHead(), u"two");
    EXPECT_EQ(m_Reader.GetLineNumber(), 2);
    CString end;
    EXPECT_TRUE(m_Reader.ReadIgnoreForm(end));
    EXPECT_EQ(end, u")");
}

TEST_F(FormImportReaderTest, BelievesNoCountThatTheFileCannotHold)
{
    ASSERT_TRUE(Open("(binary (size 4000000000) (data 00 01))"));
    m_Reader.FirstForm();
    auto* data = reinterpret_cast<unsigned char*>(1);
    unsigned size = 1;

    EXPECT_TRUE(m_Reader.Read(data, size));

    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(size, 0u);
}

TEST_F(FormImportReaderTest, EndsNormallyOnAMillionLevelsAndEmptyLines)
{
    std::string deep(1000000, '(');
    deep += std::string(1000000, '\n') + "x";
    ASSERT_TRUE(Open(deep));
    CString token;
    int brackets = 0;
    while (m_Reader.ReadIgnoreForm(token))
        brackets += token == u"(" ? 1 : 0;
    EXPECT_EQ(brackets, 1000000);
    EXPECT_EQ(m_Reader.GetLineNumber(), 1000002);

    ASSERT_TRUE(Open(deep));
    m_Reader.FirstForm();
    while (m_Reader.FindForm(u"never", -1))
        continue;
    m_Reader.CloseForm();
    EXPECT_FALSE(m_Reader.Read(token));
}

} // namespace
