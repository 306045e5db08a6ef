#include "files/CsvReader.h"

#include "platform/base/Encoding.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

using CFields = std::vector<std::string>;

CFields FieldsOf(const CCsvReader& reader)
{
    CFields fields;
    for (int i = 0; i < reader.GetCount(); ++i)
        fields.push_back(ToUtf8(reader.GetField(i).View()));
    return fields;
}

CCsvReader& OpenIn(CCsvReader& reader, const CTemporaryFolder& folder, std::string_view bytes)
{
    EXPECT_TRUE(reader.Open(folder.MakeFile(u"a.csv", bytes), CFile::modeRead));
    return reader;
}

TEST(CsvReaderTest, BreaksLinesByItsRules)
{
    const struct
    {
        const char* Line;
        int Result;
        CFields Fields;
    } cases[] = {
        {"a, b ,\"c d\"", 3, {"a", "b", "c d"}},
        {"# note", 0, {";"}},
        {"  ;x,y", 0, {";"}},
        {"\"\",a", 3, {"", "", "a"}},
        {"\"\"", 1, {""}},
        {"a,\"\"", 2, {"a", ""}},
        {"\"a\" ,b", 3, {"a", "", "b"}},
        {"\"a\"b,c", 3, {"a", "", "c"}},
        {"\"a", 1, {"a"}},
        {"\"a, b ,c", 1, {"a, b ,c"}},
        {"a,", 1, {"a"}},
        {",,a", 3, {"", "", "a"}},
        {",", 1, {""}},
        {"a, \"b\"", 2, {"a", "\"b\""}},
        {"5\" pipe,\"#1\"", 2, {"5\" pipe", "#1"}},
        {"\"#1\",\" a \"", 2, {"#1", " a "}},
        {"\xC3\xA9;x\t,\xE2\x82\xAC", 2, {"\xC3\xA9;x", "\xE2\x82\xAC"}},
    };
    const CTemporaryFolder folder;
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.Line);
        CCsvReader reader;
        OpenIn(reader, folder, test.Line);

        EXPECT_EQ(reader.NextLine(), test.Result);

        EXPECT_EQ(FieldsOf(reader), test.Fields);
        EXPECT_EQ(reader.NextLine(), -1);
    }
}

TEST(CsvReaderTest, CountsAllLinesAndRewinds)
{
    const CTemporaryFolder folder;
    CCsvReader reader;
    OpenIn(reader, folder, "\r\n \t\na,b\r\n;c\n\n\nd");
    const int lines[] = {3, 4, 7, 7};
    const int results[] = {2, 0, 1, -1};

    EXPECT_EQ(reader.GetLineNumber(), 0);
    for (int run = 0; run < 2; ++run)
    {
        for (int i = 0; i < 4; ++i)
        {
            EXPECT_EQ(reader.NextLine(), results[i]) << i;
            EXPECT_EQ(reader.GetLineNumber(), lines[i]) << i;
        }
        EXPECT_EQ(FieldsOf(reader), CFields{"d"}) << "the last line's fields stay at the end";
        reader.Rewind();
        EXPECT_EQ(reader.GetLineNumber(), 0);
    }
}

TEST(CsvReaderTest, FieldsOutsideAreEmptyAndNumbersStopAtStrangers)
{
    const CTemporaryFolder folder;
    CCsvReader reader;
    OpenIn(reader, folder, "12,ff,-7x,x,99999999999");

    ASSERT_EQ(reader.NextLine(), 5);

    EXPECT_EQ(reader.GetFieldAsInt(0, 10), 12);
    EXPECT_EQ(reader.GetFieldAsInt(1, 16), 255);
    EXPECT_EQ(reader.GetFieldAsInt(2, 10), -7);
    EXPECT_EQ(reader.GetFieldAsInt(3, 10), 0);
    EXPECT_EQ(reader.GetFieldAsInt(4, 10), 2147483647);
    for (const int outside : {-1, 5})
    {
        EXPECT_EQ(reader.GetField(outside), u"");
        EXPECT_EQ(reader.GetFieldAsInt(outside, 10), 0);
    }
}

TEST(CsvReaderTest, AMillionFieldsAndAZeroUnitAreFieldsLikeOthers)
{
    const CTemporaryFolder folder;
    std::string bytes;
    for (int i = 0; i < 1000000; ++i)
        bytes += "x,";
    bytes += std::string("y\na\0b,c", 7);
    CCsvReader reader;
    OpenIn(reader, folder, bytes);

    EXPECT_EQ(reader.NextLine(), 1000001);
    EXPECT_EQ(reader.GetField(1000000), u"y");
    EXPECT_EQ(reader.NextLine(), 2);
    EXPECT_EQ(reader.GetField(0).GetLength(), 3);
    EXPECT_EQ(reader.GetField(1), u"c");
}

} // namespace
