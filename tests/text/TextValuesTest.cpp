#include "text/TextValues.h"

#include "text/WhiteSpace.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(TextValuesTest, WordsBeginWithACapital)
{
    EXPECT_EQ(TitleCase(u"surface MOUNT\tpad\n2x"), u"Surface Mount\tPad\n2x");
    EXPECT_EQ(TitleCase(u"\u00E9TUDE \u00C9TUDE"), u"\u00C9tude \u00C9tude");
    EXPECT_EQ(TitleCase(u"a-b"), u"A-b");
    EXPECT_EQ(TitleCase(u""), u"");
}

TEST(TextValuesTest, YesAndNoAreTextsOfTheTable)
{
    EXPECT_EQ(GetYesNo(true), u"Yes");
    EXPECT_EQ(GetYesNo(false), u"No");
    EXPECT_EQ(StringToInt(u" -42 mm"), -42);
}

TEST(WhiteSpaceTest, FourUnitsAreWhiteSpace)
{
    for (const char16_t unit : {u' ', u'\n', u'\t', u'\r'})
    {
        const CString text = CString(u"a") + unit + u"b" + unit;
        EXPECT_TRUE(ContainsWhiteSpace(text));
        EXPECT_EQ(StripWhiteSpace(text), u"ab");
    }
    EXPECT_FALSE(ContainsWhiteSpace(u"a\v\f\u00A0"));
    EXPECT_EQ(StripWhiteSpace(u"a\v\f\u00A0"), u"a\v\f\u00A0");
}

} // namespace utility
