#include "text/match/NameKey.h"

#include "text/match/StringCompare.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace utility
{
namespace
{

int CompareByKeys(const std::u16string& left, const std::u16string& right)
{
    return CompareNameKeys(MakeNameKey(left), MakeNameKey(right));
}

TEST(NameKeyTest, TellsNamesApartByWhatStandsWithinTheKey)
{
    const struct
    {
        const char16_t* m_Left;
        const char16_t* m_Right;
        int m_Order;
    } rows[] = {
        {u"R9", u"R10", -1},
        {u"R10", u"r10", 0},
        {u"", u"A", -1},
        {u"<None>", u"-", -1},
        {u"_", u"a", -1},
        {u"RC0402FR-07100KL", u"RC0402FR-0710KL", 1},
        {u"RC0402FR-0710KL-A", u"RC0402FR-0710KL-B", 0}, // beyond the key
        {u"1.5", u"1.49", 0},                            // fractions are not packed
        {u"\u03A9", u"z", -1},
        {u"\u03A9a", u"\u03A9b", 0},
        {u"1", u"1.", 0},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.m_Left)));
        EXPECT_EQ(CompareByKeys(row.m_Left, row.m_Right), row.m_Order);
        EXPECT_EQ(CompareByKeys(row.m_Right, row.m_Left), -row.m_Order);
    }
}

TEST(NameKeyTest, NeverContradictsTheOrderOfNames)
{
    constexpr std::u16string_view UNITS = u"RrCk0019.,-_<\u03A9\u00E9 ";
    constexpr int PAIRS = 200'000;
    std::mt19937 random(31);
    const auto makeName = [&]
    {
        std::u16string name(random() % 20, u' ');
        for (char16_t& unit : name)
            unit = UNITS[random() % UNITS.size()];
        return name;
    };
    int decided = 0;
    for (int pair = 0; pair < PAIRS; ++pair)
    {
        const std::u16string left = makeName();
        std::u16string right = makeName();
        if (pair % 2 == 0) // names with a beginning in common
            right = left.substr(0, random() % (left.size() + 1)) + right;
        const int order = CompareByKeys(left, right);
        if (order == 0)
            continue;
        ++decided;
        ASSERT_EQ(order, StringCompare(left.c_str(), right.c_str(), false, true, true))
            << testing::PrintToString(left) << " against " << testing::PrintToString(right);
    }
    EXPECT_GT(decided, PAIRS / 2);
}

TEST(NameKeyTest, PacksRunsOfAnyLength)
{
    const std::u16string longRun(300, u'7');
    EXPECT_EQ(CompareByKeys(u"R" + longRun, u"R7"), 0) << "too long for its length to be packed";
    EXPECT_EQ(CompareByKeys(u"R" + longRun, u"RA"), -1);
    EXPECT_EQ(CompareByKeys(std::u16string(14, u'a') + u"7", std::u16string(14, u'a') + u"77"), 0);
}

} // namespace
} // namespace utility
