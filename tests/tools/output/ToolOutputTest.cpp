#include "utility/output/ToolOutput.h"

#include <gtest/gtest.h>

#include <limits>

namespace utility
{

TEST(ToolOutputTest, JsonSeparatesNestedValuesByItself)
{
    CJsonWriter writer;

    writer.BeginArray();
    writer.BeginObject();
    writer.Field(u"name", u"R1");
    writer.Key(u"pins");
    writer.BeginArray();
    writer.Number(1);
    writer.Number(-2.5);
    writer.EndArray();
    writer.EndObject();
    writer.BeginObject();
    writer.EndObject();
    writer.Bool(true);
    writer.Null();
    writer.EndArray();

    EXPECT_EQ(writer.GetText(), R"([{"name": "R1", "pins": [1, -2.5]}, {}, true, null])");
}

TEST(ToolOutputTest, JsonTextsAreEscapedAndUtf8)
{
    const struct
    {
        const char16_t* m_Text;
        const char* m_Json;
    } rows[] = {
        {u"", R"("")"},
        {u"a\"b\\c/", R"("a\"b\\c/")"},
        {u"line\nend\r\ttab", R"("line\nend\r\ttab")"},
        {u"\x01\x1F\x7F", "\"\\u0001\\u001f\x7F\""},
        {u"\u03A9", "\"\xCE\xA9\""},
        {u"\U0001F600", "\"\xF0\x9F\x98\x80\""},
        {u"\xD800x", "\"\xEF\xBF\xBDx\""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Json);
        CJsonWriter writer;

        writer.Text(row.m_Text);

        EXPECT_EQ(writer.GetText(), row.m_Json);
    }
}

TEST(ToolOutputTest, JsonNumbersReadBackExactly)
{
    const struct
    {
        double m_Value;
        const char* m_Json;
    } rows[] = {
        {0.1, "0.1"},
        {4700, "4700"},
        {1e300, "1e+300"},
        {std::numeric_limits<double>::infinity(), "null"},
        {std::numeric_limits<double>::quiet_NaN(), "null"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Json);
        CJsonWriter writer;

        writer.Number(row.m_Value);

        EXPECT_EQ(writer.GetText(), row.m_Json);
    }
}

TEST(ToolOutputTest, TableAlignsColumnsByWhatIsSeen)
{
    CTextTable table;
    table.AddColumn(u"Name");
    table.AddColumn(u"Value", CTextTable::EAlign::Right);
    table.AddColumn(u"Note");

    table.AddRow({u"R\U0001F600", u"4700", u"two\nlines\x1B"});
    table.AddRow({u"Longest", u"1"});

    EXPECT_TRUE(table.Format() == u"Name     Value  Note\n"
                                  u"-------  -----  --------------\n"
                                  u"R\U0001F600       4700  two\\nlines\\x1b\n"
                                  u"Longest      1\n");
}

} // namespace utility
