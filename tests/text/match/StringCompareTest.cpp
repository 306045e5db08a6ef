#include "text/match/StringCompare.h"

#include "platform/base/CaseFold.h"
#include "text/match/LiteralCompare.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace utility
{
namespace
{

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

int CompareInLists(const std::u16string& left, const std::u16string& right)
{
    return StringCompare(left.c_str(), right.c_str(), false, true, true);
}

std::string Show(const std::u16string& text)
{
    return std::string(text.begin(), text.end());
}

TEST(StringCompareTest, OrdersNamesAsListsDo)
{
    const struct
    {
        const char16_t* m_Left;
        const char16_t* m_Right;
        int m_Order;
    } rows[] = {
        {u"", u"", 0},           {u"", u"A", -1},       {u"R9", u"R10", -1},
        {u"R10", u"r10", 0},     {u"<None>", u"A", -1}, {u"<None>", u"-", -1},
        {u"<a", u"<b", -1},      {u"A", u"-", 1},       {u"A", u"1", 1},
        {u"_", u"a", -1},        {u"1.5", u"1.50", -1}, {u"1.5", u"1.49", 1},
        {u"1", u"1.0", -1},      {u"1,5", u"1.5", 1},   {u"007", u"7", 1},
        {u"R1A", u"R1B", -1},    {u"R12A", u"R2B", 1},  {u"\u00E9", u"\u00C9", 0},
        {u"1.a1", u"1a1.", 0},   {u"1.05", u"1.5", -1}, {u"10", u"1.5", 1},
        {u"A1B2", u"A1B10", -1}, {u"\u03A9", u"z", -1},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(Show(row.m_Left) + " against " + Show(row.m_Right));
        EXPECT_EQ(Sign(CompareInLists(row.m_Left, row.m_Right)), row.m_Order);
        EXPECT_EQ(Sign(CompareInLists(row.m_Right, row.m_Left)), -row.m_Order);
    }
}

TEST(StringCompareTest, EachFlagChangesWhatItNames)
{
    const struct
    {
        const char16_t* m_Left;
        const char16_t* m_Right;
        bool m_CaseSensitive;
        bool m_NumbersByRun;
        bool m_NumbersByValue;
        int m_Order;
    } rows[] = {
        {u"r10", u"R10", true, true, true, 1},     {u"rb", u"Ra", true, true, true, 1},
        {u"R9", u"R10", false, false, true, 1},    {u"R9", u"R10", false, true, false, -1},
        {u"1.5", u"1.50", false, true, false, -1}, {u"1.10", u"1.9", false, true, false, 1},
        {u"1.10", u"1.9", false, true, true, -1},  {u"1.a1", u"1a1.", false, true, false, -1},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(Show(row.m_Left) + " against " + Show(row.m_Right));
        EXPECT_EQ(Sign(StringCompare(row.m_Left, row.m_Right, row.m_CaseSensitive,
                                     row.m_NumbersByRun, row.m_NumbersByValue)),
                  row.m_Order);
    }
}

TEST(StringCompareTest, AgreesWithTheLiteralStepsUnderAllFlags)
{
    constexpr std::u16string_view UNITS = u"00112359.,..aAbB<-_ \u00E9\u00C9\u03A9";
    std::mt19937 random(20260106);
    const auto draw = [&](std::size_t length)
    {
        std::u16string text;
        while (text.size() < length)
            text += UNITS[random() % UNITS.size()];
        return text;
    };
    int equal = 0;
    for (int round = 0; round < 100'000; ++round)
    {
        const std::u16string left = draw(random() % 9);
        std::u16string right = left;
        if (round % 2 == 0)
            right = draw(random() % 9);
        else
            right.replace(random() % (right.size() + 1), random() % 2, draw(random() % 3));
        for (unsigned flags = 0; flags < 8; ++flags)
        {
            const bool caseSensitive = (flags & 1) != 0;
            const bool byRun = (flags & 2) != 0;
            const bool byValue = (flags & 4) != 0;
            const int order =
                Sign(StringCompare(left.c_str(), right.c_str(), caseSensitive, byRun, byValue));
            equal += order == 0 ? 1 : 0;
            ASSERT_EQ(order, Sign(CompareLiterally(left, right, caseSensitive, byRun, byValue)))
                << Show(left) << " against " << Show(right) << ", flags " << flags;
            ASSERT_EQ(order, -Sign(StringCompare(right.c_str(), left.c_str(), caseSensitive, byRun,
                                                 byValue)))
                << Show(left) << " against " << Show(right) << ", flags " << flags;
        }
    }
    EXPECT_GT(equal, 10'000);
}

TEST(StringCompareTest, OddTextsStandInACircleAndSortingStillKeepsThemAll)
{
    EXPECT_LT(CompareInLists(u"0.", u"0  "), 0);
    EXPECT_LT(CompareInLists(u"0  ", u"0,,. "), 0);
    EXPECT_LT(CompareInLists(u"0,,. ", u"0."), 0);

    std::vector<std::u16string> texts;
    for (int round = 0; round < 50; ++round)
        texts.insert(texts.end(), {u"0.", u"0,,. ", u"0  "});
    std::stable_sort(texts.begin(), texts.end(),
                     [](const auto& left, const auto& right)
                     { return CompareInLists(left, right) < 0; });
    for (const char16_t* text : {u"0.", u"0,,. ", u"0  "})
        EXPECT_EQ(std::count(texts.begin(), texts.end(), text), 50);
}

TEST(StringCompareTest, WithoutRunsEqualMeansEqualLengthAndUnits)
{
    std::mt19937 random(20260107);
    for (int round = 0; round < 20'000; ++round)
    {
        std::u16string left;
        std::u16string right;
        for (std::size_t length = random() % 4; length > 0; --length)
            left += u"0.,aA"[random() % 5];
        for (std::size_t length = random() % 4; length > 0; --length)
            right += u"0.,aA"[random() % 5];
        const bool isEqual = StringCompare(left.c_str(), right.c_str(), false, false, true) == 0;
        ASSERT_EQ(isEqual, EqualNoCase(left, right)) << Show(left) << " against " << Show(right);
    }
}

TEST(StringCompareTest, NullCountsAsEmpty)
{
    EXPECT_EQ(StringCompare(nullptr, u"", false, true, true), 0);
    EXPECT_LT(StringCompare(nullptr, u"a", false, true, true), 0);
}

} // namespace
} // namespace utility
