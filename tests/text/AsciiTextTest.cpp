#include "text/AsciiText.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(AsciiTextTest, EveryLowByteHasItsPlainLetter)
{
    const struct
    {
        int m_First;
        int m_Last;
        char16_t m_Plain;
    } rows[] = {
        {128, 191, u'_'}, {192, 198, u'A'}, {199, 199, u'C'}, {200, 203, u'E'}, {204, 207, u'I'},
        {208, 208, u'D'}, {209, 209, u'N'}, {210, 214, u'O'}, {215, 215, u'_'}, {216, 216, u'O'},
        {217, 220, u'U'}, {221, 222, u'Y'}, {223, 223, u's'}, {224, 230, u'a'}, {231, 231, u'c'},
        {232, 235, u'e'}, {236, 239, u'i'}, {240, 240, u'd'}, {241, 241, u'n'}, {242, 246, u'o'},
        {247, 247, u'_'}, {248, 248, u'o'}, {249, 252, u'u'}, {253, 255, u'y'},
    };

    int next = 128;
    for (const auto& row : rows)
    {
        ASSERT_EQ(row.m_First, next);
        for (; next <= row.m_Last; ++next)
        {
            CString text(static_cast<char16_t>(next), 1);
            EXPECT_TRUE(StringToAscii(text));
            EXPECT_EQ(text, CString(row.m_Plain)) << next;
        }
    }
    EXPECT_EQ(next, 256);
}

TEST(AsciiTextTest, OnlyTheLowByteCountsAndPlainTextIsLeftAlone)
{
    CString text = u"caf\u00E9 \u20AC \u01C0"; // low bytes AC and C0
    EXPECT_TRUE(StringToAscii(text));
    EXPECT_EQ(text, u"cafe _ A");
    EXPECT_FALSE(StringToAscii(text));
}

TEST(AsciiTextTest, StrangersAreFoundOneByOne)
{
    const CString text = u"\u00E9a\u0080\x7F";

    EXPECT_EQ(FirstNonAsciiChar(text), 0);
    EXPECT_EQ(NextNonAsciiChar(text, 0), 2);
    EXPECT_EQ(NextNonAsciiChar(text, 2), -1);
    EXPECT_EQ(NextNonAsciiChar(text, 99), -1);
    EXPECT_EQ(FirstNonAsciiChar(u""), -1);
    EXPECT_FALSE(IsAsciiString(text));
    EXPECT_TRUE(IsAsciiString(u"\x7F"));
}

TEST(AsciiTextTest, StrangersAreWrittenByNumber)
{
    CString text = u"\u00E9a\U0001F600";
    ToEncodedAscii(text);
    EXPECT_EQ(text, u"U+00E9aU+D83DU+DE00");
    ToEncodedAscii(text);
    EXPECT_EQ(text, u"U+00E9aU+D83DU+DE00");
}

} // namespace utility
