#include "text/names/NameRange.h"

#include "support/PrintText.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

namespace utility
{
namespace
{

std::vector<CString> NamesOf(CNameRange& range)
{
    std::vector<CString> names;
    POSITION position = nullptr;
    for (CString name = range.First(position); !name.IsEmpty(); name = range.Next(position))
        names.push_back(name);
    return names;
}

CString Walk(CNameRange& range)
{
    CString names;
    for (const CString& name : NamesOf(range))
        names += names.IsEmpty() ? name : u" " + name;
    return names;
}

TEST(NameRangeTest, ReadsAndWalksCompactText)
{
    const struct
    {
        const char16_t* m_Text;
        const char16_t* m_Names;
        const char16_t* m_Back;
        bool m_Valid = true;
    } rows[] = {
        {u"", u"", u""},
        {u"R[1-3],C3", u"R1 R2 R3 C3", u"R[1-3],C3"},
        {u"U[1-3]A", u"U1A U2A U3A", u"U[1-3]A"},
        {u"U[1-2]A2", u"U1A2 U2A2", u"U[1-2]A2"},
        {u"IC", u"IC", u"IC"},
        {u"R1[0-2]", u"R10 R11 R12", u"R[10-12]"},
        {u"R[3-1]", u"R3 R2 R1", u"R[3-1]"},
        {u"R[08-10]", u"R08 R09 R10", u"R[08-10]"},
        {u"R[8-010]", u"R8 R9 R10", u"R[8-10]"},
        {u" R [ 1 - 2 ] , C3 ", u"R1 R2 C3", u"R[1-2],C3"},
        {u"R[5]", u"R5", u"R5"},
        {u"R1,,C3,", u"R1 C3", u"R1,C3"},
        {u"C3,R[1-],D4", u"C3", u"C3", false},
        {u"R[a-b]", u"", u"", false},
        {u"R[-5]", u"", u"", false},
        {u"R1[-5]", u"", u"", false},
        {u"R[1-2147483647]", u"", u"", false},
        {u"R]1[", u"R]1[", u"R]1["},
        {u"R[1", u"R[1", u"R[1"},
        {u"R5]A", u"R5]A", u"R5]A"},
        {u"5[1-2]", u"51 52", u"5[1-2]"},
        {u"R99999999999", u"R99999999999", u"R99999999999"},
        {u"R[2147483646-2147483645]", u"R2147483646 R2147483645", u"R[2147483646-2147483645]"},
        {u"R[1-0]", u"R1 R0", u"R[1-0]"},
        {u"[],R[],R1", u"R R1", u"R,R1"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text)));
        CNameRange range;
        range.SetString(row.m_Text);
        EXPECT_EQ(Walk(range), CString(row.m_Names));
        EXPECT_EQ(range.GetString(), CString(row.m_Back));
        EXPECT_EQ(range.IsValid(), row.m_Valid);
        EXPECT_EQ(range.Count(), static_cast<int>(NamesOf(range).size()));
    }
}

TEST(NameRangeTest, ReadsListsInBracketsWhereTheItemsArePartedOtherwise)
{
    const struct
    {
        const char16_t* m_Text;
        const char16_t* m_Names;
        char16_t m_RangeSep = u'-';
    } rows[] = {
        {u"R[1,3-5];C1", u"R1 R3 R4 R5 C1"},
        {u"U[1,3]A", u"U1 U3A"}, // the suffix belongs to the last member alone
        {u"R1[0-1,5]", u"R10 R11 R15"},
        {u"R[1,3]", u"R1 R2 R3", u','},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text)));
        CNameRange range(u'[', u']', row.m_RangeSep, u';', false, false);
        range.SetString(row.m_Text);
        EXPECT_EQ(Walk(range), CString(row.m_Names));
        EXPECT_TRUE(range.IsValid());
    }
}

TEST(NameRangeTest, AddsSoThatSpansGrowAndJoin)
{
    const struct
    {
        const char16_t* m_Text;
        const char16_t* m_Add;
        const char16_t* m_Result;
        bool m_Ordered = false;
    } rows[] = {
        {u"R[3-5]", u"R2", u"R[2-5]"},
        {u"R[1-10],R12", u"R11", u"R[1-12]"},
        {u"R[1-3],R[4-6]", u"R4", u"R[1-6]"},
        {u"R[1-5]", u"R04", u"R[1-5],R04"},
        {u"R[1-5]", u"r6", u"R[1-6]"},
        {u"R[09]", u"R010", u"R[09-10]"},
        {u"R[10-12]", u"R9", u"R[9-12]"},
        {u"R[10-12]", u"R09", u"R[09-12]"},
        {u"R5", u"R4", u"R[4-5]"},
        {u"R5", u"R4", u"R[5-4]", true},
        {u"R5", u"R4,R3", u"R[5-4],R3", true},
        {u"R5,C1", u"R6", u"R5,C1,R6", true},
        {u"R[4-6],C1,R2", u"R3", u"C1,R[2-6]", true},
        {u"R[5-1]", u"R6,R0", u"R[5-1],R6,R0"},
        {u"R", u"R0,R", u"R,R0,R"},
        {u"U[1-3]A2", u"U2A2", u"U[1-3]A2"},
        {u"R 1 [0-5]", u"R 13", u"R 1[0-5]"},
        {u"R3,R[1-10]", u"R4", u"R[1-10]"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text) + u" + " + row.m_Add));
        CNameRange range(u'[', u']', u'-', u',', false, row.m_Ordered);
        range.SetString(row.m_Text);
        range.Add(row.m_Add);
        EXPECT_EQ(range.GetString(), CString(row.m_Result));
    }
}

TEST(NameRangeTest, DeletesSoThatSpansShrinkAndSplit)
{
    const struct
    {
        const char16_t* m_Text;
        const char16_t* m_Delete;
        const char16_t* m_Result;
        bool m_Found = true;
    } rows[] = {
        {u"R[2-5]", u"R4", u"R[2-3],R5"},    {u"R[2-5],C1", u"r2", u"R[3-5],C1"},
        {u"R[2-5]", u"R5,R9", u"R[2-4]"},    {u"R[2-5]", u"R03", u"R[2-5]", false},
        {u"U[1-3]A2", u"U3A2", u"U[1-2]A2"}, {u"R[5-1]", u"R5", u"R[4-1]"},
        {u"R[5-1]", u"R1", u"R[5-2]"},       {u"R[5-1]", u"R3", u"R[5-4],R[2-1]"},
        {u"IC,R1", u"ic,R1", u""},           {u"R[1-2000000000]", u"R7", u"R[1-6],R[8-2000000000]"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Text) + u" - " + row.m_Delete));
        CNameRange range;
        range.SetString(row.m_Text);
        EXPECT_EQ(range.Delete(row.m_Delete), row.m_Found);
        EXPECT_EQ(range.GetString(), CString(row.m_Result));
    }
}

TEST(NameRangeTest, ContainsByNameAndDisturbsNoWalk)
{
    CNameRange range;
    range.SetString(u"R[1-5],U[1-3]A2,IC,5[1-2]");
    for (const char16_t* name : {u"r4", u"u2a2", u"ic", u"52"})
        EXPECT_TRUE(range.Contains(name)) << testing::PrintToString(CString(name));
    for (const char16_t* name : {u"R04", u"R6", u"R", u"", u"U2A", u"53", u"R4 "})
        EXPECT_FALSE(range.Contains(name)) << testing::PrintToString(CString(name));

    POSITION position = nullptr;
    range.First(position);
    EXPECT_TRUE(range.Contains(u"R5") && range.IsRange());
    EXPECT_EQ(range.Next(position), CString(u"R2"));

    CNameRange exact(u'[', u']', u'-', u',', true, false);
    exact.SetString(u"R[1-5]");
    EXPECT_FALSE(exact.Contains(u"r4"));
}

TEST(NameRangeTest, MakesOneSpanOfTwoNamesThatBelongTogether)
{
    const struct
    {
        const char16_t* m_First;
        const char16_t* m_Last;
        const char16_t* m_Result;
    } rows[] = {
        {u"R1", u"R5", u"R[1-5]"},     {u"R5", u"r01", u"R[5-1]"},   {u"R1", u"C5", u"R1,C5"},
        {u"U1A", u"U3A", u"U[1-3]A"},  {u"U1A", u"U3B", u"U1A,U3B"}, {u"IC", u"IC", u"IC,IC"},
        {u"R01", u"R05", u"R[01-05]"},
    };
    for (const auto& row : rows)
    {
        CNameRange range;
        range.SetString(row.m_First, row.m_Last);
        EXPECT_EQ(range.GetString(), CString(row.m_Result));
        EXPECT_TRUE(range.IsValid());
    }
}

TEST(NameRangeTest, BecomesAWildcardPatternAndBack)
{
    CNameRange range;
    range.SetString(u"R[1-10],C3");

    const CString pattern = range.ConvertToWildcardString();
    CNameRange back;
    back.SetFromWildcardString(pattern);

    EXPECT_EQ(pattern, CString(u"R%[1:10%]|C3"));
    EXPECT_EQ(back.GetString(), range.GetString());
    EXPECT_EQ(range.GetString(u"<", u">", u"..", u" "), CString(u"R<1..10> C3"));
}

TEST(NameRangeTest, TellsRangesAndOverlaps)
{
    CNameRange one;
    one.SetString(u"R[5]");
    EXPECT_FALSE(one.IsRange());
    EXPECT_TRUE(CNameRange::IsRange(u"a,b", u'[', u']', u'-', u','));
    EXPECT_FALSE(CNameRange::IsRange(u"a[b", u'[', u']', u'-', u','));

    const struct
    {
        const char16_t* m_Left;
        const char16_t* m_Right;
        bool m_Overlap;
    } rows[] = {
        {u"R[1-5]", u"C1,r5", true},
        {u"R[1-5]", u"R6,R05", false},
        {u"R[1-2000000000]", u"R[2000000000-2000000001]", true},
        {u"R[1-1999999999]", u"R[2000000000-2000000100]", false},
        {u"R[1-2000000000]", u"R[0000000001-0000000999]", false},
        {u"R[1-2000000000]", u"R[0000000001-1000000000]", true},
        {u"U[1-200]A2", u"U1A[1-200]", true},
        {u"U[2-200]A2", u"U1A[1-200]", false},
        {u"R[1-2000000000]", u"R 5 [0-9]", false},
        {u"R[1-199]5", u"R[100-400]", true},
        {u"R[1-199]5", u"R[1996-2999]", false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::PrintToString(CString(row.m_Left) + u" / " + row.m_Right));
        EXPECT_EQ(CNameRange::IsNameOverlap(row.m_Left, row.m_Right, u'[', u']', u'-', u','),
                  row.m_Overlap);
        EXPECT_EQ(CNameRange::IsNameOverlap(row.m_Right, row.m_Left, u'[', u']', u'-', u','),
                  row.m_Overlap);
    }
}

TEST(NameRangeTest, OverlapAgreesWithTheListsOfNames)
{
    std::mt19937 random(7);
    const char16_t* const fixed[] = {u"", u"1", u"A"};
    const auto draw = [&](unsigned limit)
    {
        return static_cast<int>(random() % limit);
    };
    const auto make = [&]
    {
        // One draw a statement: compilers may take the arguments of a call in any order.
        const char16_t* const stem = fixed[draw(3)];
        const int first = draw(300);
        const int last = draw(300);
        CString text;
        text.Format(u"R%s [%d-%d]%s", stem, first, last, fixed[draw(3)]);
        return text;
    };
    int common = 0;
    for (int round = 0; round < 400; ++round)
    {
        CNameRange left;
        CNameRange right;
        const CString leftText = make();
        const CString rightText = make();
        left.SetString(leftText);
        right.SetString(rightText);
        bool shared = false;
        for (const CString& name : NamesOf(left))
            shared |= right.Contains(name);
        common += shared;
        SCOPED_TRACE(testing::PrintToString(leftText + u" / " + rightText));
        EXPECT_EQ(CNameRange::IsNameOverlap(leftText, rightText, u'[', u']', u'-', u','), shared);
    }
    EXPECT_GT(common, 30) << "too few pairs to tell anything";
}

TEST(NameRangeTest, ASetOfNamesComesBackWhateverTheOrder)
{
    std::mt19937 random(3);
    for (const bool ordered : {false, true})
    {
        CNameRange range(u'[', u']', u'-', u',', false, ordered);
        std::set<std::u16string> names;
        for (int step = 0; step < 4000; ++step)
        {
            CString name;
            name.Format(u"%s%d", step % 2 ? u"R" : u"C", random() % 500);
            if (random() % 3 == 0)
                EXPECT_EQ(range.Delete(name), names.erase(std::u16string(name.View())) > 0);
            else if (!range.Contains(name))
            {
                range.Add(name);
                names.emplace(name.View());
            }
        }
        std::set<std::u16string> walked;
        for (const CString& name : NamesOf(range))
            EXPECT_TRUE(walked.emplace(name.View()).second);
        EXPECT_EQ(walked, names);
    }
}

} // namespace
} // namespace utility
