#include "text/names/NameRange.h"

#include "support/PrintText.h"

#include <gtest/gtest.h>

#include <string>

namespace utility
{
namespace
{

// Each of these would take minutes or more if names were walked one by one, or each name looked at
// every item.

constexpr int MILLION = 1'000'000;

bool Overlap(const CString& left, const CString& right)
{
    return CNameRange::IsNameOverlap(left, right, u'[', u']', u'-', u',');
}

/// "R1,R3,R5," and so on from `first` in steps of two.
CString EveryOtherName(int first, int count)
{
    std::u16string text;
    for (int index = 0; index < count; ++index)
    {
        text += u'R';
        for (const char digit : std::to_string(first + 2 * index))
            text += static_cast<char16_t>(digit);
        text += u',';
    }
    return CString(text);
}

/// Spans of seventy numbers from each hundred, all numbers printed with `zeros` in front.
CString ManySpans(const char16_t* stem, int count, const char16_t* zeros = u"")
{
    CString text;
    for (int index = 1; index <= count; ++index)
        text.AppendFormat(u"%s[%s%d00-%s%d69],", stem, zeros, index, zeros, index);
    return text;
}

TEST(NameRangeHugeTest, TwoThousandMillionNamesAreOneItem)
{
    CNameRange range;
    range.SetString(u"R[1-2000000000]");

    EXPECT_TRUE(range.IsValid() && range.IsRange());
    EXPECT_EQ(range.GetItemCount(), 1);
    EXPECT_EQ(range.Count(), 2'000'000'000);
    EXPECT_TRUE(range.Contains(u"R1") && range.Contains(u"r2000000000"));
    EXPECT_FALSE(range.Contains(u"R0") || range.Contains(u"R2000000001"));
    EXPECT_EQ(range.GetString(), CString(u"R[1-2000000000]"));
    EXPECT_EQ(range.ConvertToWildcardString(), CString(u"R%[1:2000000000%]"));
    EXPECT_EQ(range.First(), CString(u"R1"));

    EXPECT_TRUE(range.Delete(u"R1999999999"));
    EXPECT_EQ(range.GetString(), CString(u"R[1-1999999998],R2000000000"));
    EXPECT_EQ(range.Count(), 1'999'999'999);
    range.Add(u"R1999999999");
    EXPECT_EQ(range.GetString(), CString(u"R[1-2000000000]"));

    range.SetString(u"R[0-2147483646],C[1-2000000000]");
    EXPECT_EQ(range.Count(), 2147483647) << "no int counts them all";
    EXPECT_TRUE(Overlap(u"R[1-2000000000]", u"C[1-2000000000],r[2000000000-2000000001]"));
    EXPECT_FALSE(Overlap(u"R[1-2000000000]", u"R[2000000001-2147483646],C[1-2000000000],R01"));
}

TEST(NameRangeHugeTest, DamagedTextsCostWhatTheirLengthCosts)
{
    std::u16string many;
    for (int index = 0; index < 100'000; ++index)
        many += u"[1-9],";
    CNameRange range;
    range.SetString(CString(many));
    EXPECT_EQ(range.GetItemCount(), 100'000);
    range.SetString(CString(std::u16string(MILLION, u'[')));
    EXPECT_EQ(range.GetItemCount(), 1);
    range.SetString(CString(std::u16string(MILLION, u'7')));
    EXPECT_EQ(range.Count(), 1);
    EXPECT_FALSE(range.Contains(u"7"));
}

TEST(NameRangeHugeTest, AMillionNamesAreReadFoundAndFilledUp)
{
    constexpr int FILLED = 200'000;
    const CString odd = EveryOtherName(1, MILLION);
    CNameRange range;
    range.SetString(odd);
    EXPECT_EQ(range.GetItemCount(), MILLION);
    EXPECT_EQ(range.Count(), MILLION);
    EXPECT_TRUE(range.Contains(u"R1999999"));
    EXPECT_FALSE(range.Contains(u"R1000000"));
    EXPECT_EQ(range.GetString() + u',', odd);

    // Each name grows the first span and joins the next number to it.
    range.Add(EveryOtherName(2, FILLED));

    POSITION position = nullptr;
    EXPECT_EQ(range.FirstItem(position), CString(u"R[1-400001]"));
    EXPECT_EQ(range.GetItemCount(), MILLION - FILLED);
    EXPECT_EQ(range.Count(), MILLION + FILLED);
}

TEST(NameRangeHugeTest, ASpanOfAHundredThousandIsAddedAndTakenAwayNameByName)
{
    CNameRange range;
    range.Add(u"R[1-100000]");
    EXPECT_EQ(range.GetString(), CString(u"R[1-100000]"));
    EXPECT_TRUE(range.Delete(u"R[100000-2]"));
    EXPECT_EQ(range.GetString(), CString(u"R1"));
}

TEST(NameRangeHugeTest, ManyItemsThatLookAlikeAreFoundAtOnce)
{
    constexpr int COUNT = 20'000;
    CString doubles;
    CString touching; // digits of the stem stand directly before the number
    for (int index = 0; index < COUNT; ++index)
    {
        doubles += u"R5,";
        touching.AppendFormat(u"R %d [1-2],", 100 + index);
    }
    CNameRange range;
    range.SetString(doubles);
    EXPECT_TRUE(range.Delete(doubles));
    EXPECT_EQ(range.GetItemCount(), 0);

    range.SetString(touching);
    EXPECT_EQ(range.GetItemCount(), COUNT);
    EXPECT_TRUE(range.Delete(touching));
    EXPECT_EQ(range.GetItemCount(), 0);
}

TEST(NameRangeHugeTest, ManySpansAreComparedInOrderAndNotEachWithEach)
{
    constexpr int COUNT = 20'000;
    const CString spans = ManySpans(u"R", COUNT);

    EXPECT_FALSE(Overlap(spans, ManySpans(u"C", COUNT)));
    EXPECT_FALSE(Overlap(spans, ManySpans(u"R", COUNT, u"0"))) << "other widths, other names";
    EXPECT_FALSE(Overlap(spans, u"R[70-99],R[2000070-2100000]"));
    EXPECT_TRUE(Overlap(spans, u"R[2000069-2100000]"));
    EXPECT_TRUE(Overlap(ManySpans(u"r", COUNT), spans));
}

} // namespace
} // namespace utility
