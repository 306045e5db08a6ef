#include "text/numbers/SIUnit.h"

#include "platform/base/String.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(SIUnitTest, ReadsTheMultiplierThatATextBeginsWith)
{
    const struct
    {
        const char16_t* m_Text;
        double m_Factor;
        int m_Length;
    } rows[] = {
        {u"uF", 1e-6, 1}, {u"\u00B5F", 1e-6, 1}, {u"mF", 1e-3, 1},  {u"MHz", 1e6, 1},
        {u"k", 1e3, 1},   {u"K", 1e3, 1},        {u"a", 1e-18, 1},  {u"E", 1e18, 1},
        {u"Y", 1.0, 0},   {u"z", 1.0, 0},        {u"15uF", 1.0, 0}, {u"", 1.0, 0},
    };
    for (const auto& row : rows)
    {
        const CString text(row.m_Text);
        SCOPED_TRACE(std::string(text.View().begin(), text.View().end()));
        double factor = 99;
        EXPECT_EQ(ReadSIUnit(factor, text), row.m_Length);
        EXPECT_EQ(factor, row.m_Factor);
    }
}

TEST(SIUnitTest, NormalisingUsesTheRowBehindTheFirstThatIsLargeEnough)
{
    const struct
    {
        double m_Value;
        double m_Quotient;
        const char16_t* m_Name;
    } rows[] = {
        {4700, 4700 / 1e9, u"G"}, {0, 0, u"f"},      {-5, 6e15, u"f"},     {-0.5, 1.5e15, u"f"},
        {1e-18, 1e-3, u"f"},      {1e3, 1, u"K"},    {1e-6, 1, u"\u00B5"}, {1e15, 1e-3, u"E"},
        {2e15, 2e15, u""},        {1e18, 1e18, u""}, {5e18, 5e18, u""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Value);
        CString name(u"old");
        EXPECT_DOUBLE_EQ(NormaliseSIUnit(row.m_Value, name), row.m_Quotient);
        EXPECT_EQ(name.View(), std::u16string_view(row.m_Name));
    }
}

TEST(SIUnitTest, TheNormalisedTextIsAtLeastThreeWideWithoutDecimals)
{
    const struct
    {
        double m_Value;
        const char16_t* m_Text;
    } rows[] = {{4700, u"  0G"}, {0, u"  0f"}, {2.5e18, u"2500000000000000000"}, {1e3, u"  1K"}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Value);
        CString text;
        NormaliseSIUnitString(row.m_Value, text);
        EXPECT_EQ(text.View(), std::u16string_view(row.m_Text));
    }
}

TEST(SIUnitTest, PrefixesRunFromYoctoToYottaWithThePointBetween)
{
    int former = -27;
    for (const CSIPrefix& prefix : GetSIPrefixes())
    {
        EXPECT_EQ(prefix.m_Exponent, former + 3);
        EXPECT_EQ(prefix.m_Exponent == 0, prefix.m_Character == u'.');
        former = prefix.m_Exponent;
    }
    EXPECT_EQ(GetSIPrefixes().size(), 17u);
}

} // namespace
} // namespace utility
