#include "text/match/Wildcard.h"

#include "text/match/WildcardChars.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(WildcardTest, AnEmptyPatternIsInvalidAndMatchesEverything)
{
    CWildcard wildcard;

    EXPECT_FALSE(wildcard.IsValid());
    EXPECT_FALSE(wildcard.SetString(u""));
    EXPECT_TRUE(wildcard.Match(u"anything"));
}

TEST(WildcardTest, CopiesKeepPatternAndCaseFlag)
{
    CWildcard wildcard(u"r*");
    EXPECT_TRUE(wildcard.Match(u"R1"));
    wildcard.SetCaseSensitive(true);

    const CWildcard copy(wildcard);

    EXPECT_FALSE(copy.Match(u"R1"));
    EXPECT_TRUE(copy.Match(u"r1"));
    EXPECT_FALSE(copy.Match(u"x"));
    EXPECT_TRUE(copy.GetString() == u"r*");
}

TEST(WildcardTest, PatternsAreToldFromNamesByTheirSpecialCharacters)
{
    for (const char16_t* pattern : {u"a*", u"?b", u"a|b", u"100%"})
        EXPECT_TRUE(IsWildString(pattern));
    for (const char16_t* name : {u"", u"R1", u"{^#[:]}"})
        EXPECT_FALSE(IsWildString(name));
}

TEST(WildcardTest, NextOrIsLookedForFromTheSecondUnitOn)
{
    const struct
    {
        const char16_t* m_Text;
        int m_Length;
    } rows[] = {{u"", 0}, {u"abc", 3}, {u"ab|c", 2}, {u"|b|c", 2}, {u"|", 1}, {u"||", 1}};
    for (const auto& row : rows)
        EXPECT_EQ(NextOrString(row.m_Text), row.m_Length) << CString(row.m_Text).GetLength();
}

TEST(WildcardTest, RangeCharactersComeInTheirOrder)
{
    char16_t units[5] = {};
    GetWildRangeChars(units[0], units[1], units[2], units[3], units[4]);

    EXPECT_EQ(std::u16string_view(units, 5), u"%[]:|");
}

} // namespace
} // namespace utility
