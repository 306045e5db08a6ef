#include "utility/output/ScreenWidth.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

TEST(ScreenWidthTest, WideOnesTakeTwoColumnsAndMarksNone)
{
    const struct
    {
        const char16_t* m_Text;
        int m_Width;
    } cases[] = {
        {u"", 0},
        {u"4k7", 3},
        {u"4,7 kΩ", 6},
        {u"µF\u00A0é", 4},
        {u"e\u0301", 1},     // with a mark of its own
        {u"抵抗器", 6},      // wide
        {u"ｱ", 1},           // half a width
        {u"\u200B", 0},      // no width at all
        {u"\U0001F50B", 2},  // a pair of surrogates
        {u"a\xD83Dz", 3},    // half a pair
        {u"tab\tline\n", 9}, // controls count
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Width);
        EXPECT_EQ(ScreenWidth(CString(row.m_Text)), row.m_Width);
    }
}

TEST(ScreenWidthTest, TextIsBrokenIntoPiecesThatFit)
{
    const struct
    {
        const char16_t* m_Text;
        int m_Width;
        std::vector<CString> m_Pieces;
    } cases[] = {
        {u"", 5, {u""}},
        {u"abc", 3, {u"abc"}},
        {u"abcdefg", 3, {u"abc", u"def", u"g"}},
        {u"抵抗器", 5, {u"抵抗", u"器"}},
        {u"抵抗", 1, {u"抵", u"抗"}}, // no room at all
        {u"ae\u0301i", 2, {u"ae\u0301", u"i"}},
        {u"\U0001F50B\U0001F50B", 3, {u"\U0001F50B", u"\U0001F50B"}},
        {u"ab", -3, {u"a", u"b"}},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Width);
        EXPECT_EQ(BreakToWidth(row.m_Text, row.m_Width), row.m_Pieces);
    }
}

TEST(ScreenWidthTest, TextIsCutBetweenCharacters)
{
    const struct
    {
        const char16_t* m_Text;
        int m_Width;
        const char16_t* m_Cut;
    } cases[] = {
        {u"100 kOhm", 8, u"100 kOhm"},
        {u"100 kOhm", 6, u"100 k…"},
        {u"抵抗器", 6, u"抵抗器"},
        {u"抵抗器", 5, u"抵抗…"},
        {u"抵抗器", 4, u"抵…"},
        {u"抵抗器", 1, u"…"},
        {u"e\u0301e\u0301e\u0301", 2, u"e\u0301…"},
        {u"\U0001F50B\U0001F50B", 3, u"\U0001F50B…"},
        {u"abc", 0, u""},
        {u"", 0, u""},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Width);
        EXPECT_EQ(CutToWidth(row.m_Text, row.m_Width), CString(row.m_Cut));
    }
}

} // namespace
