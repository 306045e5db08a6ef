#include "text/match/MatchingString.h"

#include "platform/base/String.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(MatchingStringTest, BuildsEachTextOfASeries)
{
    const struct
    {
        const char* m_Name;
        const char16_t* m_Pattern;
        int m_Index;
        bool m_Generated;
        const char16_t* m_Result;
        int m_IndexThen;
    } rows[] = {
        {"star", u"R*", 1, true, u"R1", 2},
        {"star with two digits", u"R*x*", 12, true, u"R12x12", 13},
        {"below one", u"R*", -7, true, u"R1", 2},
        {"question mark", u"N?", 9, true, u"N9", 10},
        {"question mark and two digits", u"N?x", 10, false, u"N", 11},
        {"first alternative", u"a|b|c", 1, true, u"a", 2},
        {"second alternative", u"a|b*|c", 2, true, u"b2", 3},
        {"behind the last alternative", u"a|b", 5, true, u"b", 6},
        {"alternative in front of a failing one", u"a|?", 1, true, u"a", 2},
        {"items stand as written", u"%d%{x%}", 3, true, u"%d%{x%}", 4},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        int index = row.m_Index;
        CString result(u"old");
        EXPECT_EQ(GenerateNextMatchingString(row.m_Pattern, index, result), row.m_Generated);
        EXPECT_EQ(result.View(), std::u16string_view(row.m_Result));
        EXPECT_EQ(index, row.m_IndexThen);
    }
}

TEST(MatchingStringTest, TheResultMayHoldThePattern)
{
    int index = 7;
    CString text(u"R*x");

    EXPECT_TRUE(GenerateNextMatchingString(text.GetString(), index, text));

    EXPECT_EQ(text.View(), u"R7x");
}

TEST(MatchingStringTest, AnEmptyPatternLeavesTheIndexAlone)
{
    int index = -3;
    CString result;

    EXPECT_FALSE(GenerateNextMatchingString(u"", index, result));

    EXPECT_EQ(index, -3);
}

} // namespace
} // namespace utility
