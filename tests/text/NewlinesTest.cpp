#include "text/Newlines.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(NewlinesTest, LastLineFeedBeginsNoLine)
{
    EXPECT_EQ(CountLines(u""), 0);
    EXPECT_EQ(CountLines(u"a"), 1);
    EXPECT_EQ(CountLines(u"\n"), 1);
    EXPECT_EQ(CountLines(u"a\n"), 1);
    EXPECT_EQ(CountLines(u"a\nb"), 2);
    EXPECT_EQ(CountLines(u"a\r\n\r\nb\r\n"), 3);
}

TEST(NewlinesTest, ResultsAreAppended)
{
    CString contracted = u">";
    CString expanded = u">";

    ContractNewlines(u"a\r\nb\rc\n", contracted);
    ExpandNewlines(u"a\nb\r\n", expanded);

    EXPECT_EQ(contracted, u">a\nbc\n");
    EXPECT_EQ(expanded, u">a\r\nb\r\r\n"); // a return that stands already doubles
}

TEST(NewlinesTest, LinesAreSetBetweenPrefixAndSuffix)
{
    const struct
    {
        const char16_t* m_In;
        const char16_t* m_Out;
    } cases[] = {
        {u"", u"[]"},           {u"a", u"[a]"},          {u"a\r\nb", u"[a]\n[b]"},
        {u"a\r\n", u"[a]\n[]"}, {u"a\rxb", u"[a]\n[b]"}, // whatever is behind the return goes
        {u"a\r", u"[a]\n[]"},   {u"a\nb", u"[a\nb]"},
    };

    for (const auto& row : cases)
    {
        CString out = u":";
        ReplaceNewlines(row.m_In, out, u"[", u"]");
        EXPECT_EQ(out, CString(u":") + row.m_Out);
    }
}

} // namespace utility
