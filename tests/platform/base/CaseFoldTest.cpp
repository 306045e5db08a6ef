#include "platform/base/CaseFold.h"

#include <gtest/gtest.h>

using namespace utility;

TEST(CaseFoldTest, FoldsLatinLettersBothWaysAndNothingElse)
{
    for (int i = 0; i <= 0xFFFF; ++i)
    {
        const auto unit = static_cast<char16_t>(i);
        const bool upper = (i >= 'A' && i <= 'Z') || (i >= 0xC0 && i <= 0xDE);
        const bool lower = (i >= 'a' && i <= 'z') || (i >= 0xE0 && i <= 0xFE);
        ASSERT_EQ(ToLower(unit), upper ? i + 32 : i);
        ASSERT_EQ(ToUpper(unit), lower ? i - 32 : i);
    }
}

TEST(CaseFoldTest, EqualTextsHaveEqualLengths)
{
    EXPECT_TRUE(EqualNoCase(u"Na\u00CFve", u"nA\u00EFVE"));
    EXPECT_FALSE(EqualNoCase(u"abc", u"ab"));
    EXPECT_FALSE(EqualNoCase(u"abc", u"abd"));
    EXPECT_TRUE(EqualNoCase(u"", u""));
}
