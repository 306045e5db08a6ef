#include "text/match/StringMatch.h"

#include "platform/base/String.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

struct CMatchRow
{
    const char* m_Name;
    const char16_t* m_Pattern;
    const char16_t* m_Text;
    bool m_Matches;
};

/// Verdicts of both forms, case-insensitive.
template <std::size_t Count>
void ExpectVerdicts(const CMatchRow (&rows)[Count])
{
    for (const CMatchRow& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        CString residue;
        EXPECT_EQ(StringMatch(row.m_Pattern, row.m_Text, false), row.m_Matches);
        EXPECT_EQ(StringMatchWithResidue(row.m_Pattern, row.m_Text, residue, false), row.m_Matches);
    }
}

TEST(StringMatchTest, PlainPatternsMatchWholeTexts)
{
    ExpectVerdicts({
        {"both empty", u"", u"", true},
        {"empty pattern", u"", u"x", false},
        {"star and nothing", u"*", u"", true},
        {"question mark and nothing", u"?", u"", false},
        {"two stars and nothing", u"**", u"", true},
        {"star in front", u"*abc", u"xxabc", true},
        {"star meets a late end", u"*abc", u"abcab", false},
        {"stars around", u"*10k*", u"RES-10K-1%", true},
        {"star behind its text", u"a*", u"a", true},
        {"length", u"a?c", u"ac", false},
        {"fold", u"\u00E9", u"\u00C9", true},
        {"times and divided fold onto each other", u"\u00F7", u"\u00D7", true},
        {"a star in the text", u"a*b", u"a*b", true},
        {"a per cent sign in the text", u"10%", u"10%", true},
        {"a per cent sign makes its letter plain", u"%d", u"%d", true},
    });
}

TEST(StringMatchTest, AlternativesAreTriedInTurn)
{
    ExpectVerdicts({
        {"one of three", u"a|b|c", u"b", true},
        {"common beginning", u"abc|abd", u"abd", true},
        {"star in front of another", u"a*|b", u"axx", true},
        {"none", u"a|b", u"c", false},
        {"no alternative at the text's end", u"a|", u"", false},
        {"empty first alternative", u"|a", u"", true},
        {"empty first alternative ends the search", u"|a", u"a", false},
        {"empty middle alternative ends the search", u"a||b", u"b", false},
        {"an or in the text", u"a|b", u"a|b", true},
        {"items are final at the top level", u"%d1|%d2", u"52", false},
        {"behind a literal they are not", u"a%d1|a%d2", u"a52", true},
        {"nor in a group", u"%{%d1|%d2%}", u"52", true},
        {"unknown item hands over", u"%|b", u"b", true},
        {"refused word hands over", u"%A|b", u"b", true},
        {"failed word does not", u"%A1|Ab", u"Ab", false},
    });
}

TEST(StringMatchTest, GroupsWalkTheirAlternativesAndSkipWithoutCountingNesting)
{
    ExpectVerdicts({
        {"group", u"x%{a|b%}y", u"xby", true},
        {"three alternatives", u"%{a|b|c%}e", u"ae", true},
        {"nested", u"%{a%{b|c%}%}", u"ac", true},
        {"the inner end ends the walk", u"%{a|%{b|c%}d%}e", u"ae", false},
        {"empty last alternative is none", u"%{a|%}b", u"b", false},
        {"empty last alternative, other one", u"%{a|%}b", u"ab", true},
        {"empty first alternative", u"%{|a%}b", u"b", true},
        {"empty first alternative, other one", u"%{|a%}b", u"ab", true},
        {"unclosed", u"%{a|b", u"b", true},
        {"star at the text's end", u"%{a*%}", u"a", false},
        {"star in a group", u"%{a*%}", u"ab", true},
        {"alternative behind a failed group", u"%{a%}x|b", u"b", true},
    });
}

TEST(StringMatchTest, ItemsTakeWhatTheyName)
{
    ExpectVerdicts({
        {"integer", u"R%i", u"R12", true},
        {"integer wants a digit", u"R%i", u"R", false},
        {"integer and a letter", u"R%i", u"R1a", false},
        {"real with point", u"%f", u"3.14", true},
        {"real with comma", u"%f", u"3,14", true},
        {"real ends with its point", u"%f", u"3.", true},
        {"real begins with a digit", u"%f", u".5", false},
        {"real has one point", u"%f", u"1.2.3", false},
        {"capital", u"%C%i", u"C12", true},
        {"capital refuses small", u"%C%i", u"c12", false},
        {"letters are ASCII", u"%c", u"\u00E9", false},
        {"word", u"%a-%A", u"ab-AB", true},
        {"word in capitals", u"%A", u"Ab", false},
        {"letters and digits", u"%s%S", u"a1B2", true},
        {"digits are free in capitals", u"%S", u"1B2", true},
        {"unit", u"%d%u", u"5mm", true},
        {"short unit, then its rest", u"%uetre", u"metre", true},
        {"units have a case", u"%u", u"MM", false},
        {"inch sign", u"%i%U", u"5\"", true},
        {"prefix", u"%i%pF", u"10uF", true},
        {"point is no prefix", u"%p", u".", false},
        {"capital prefix", u"%P", u"N", true},
        {"capital prefix only by capital item", u"%p", u"N", false},
        {"empty item", u"%#", u"", true},
        {"empty item and a text", u"%#", u"x", false},
        {"empty item in a pattern", u"a%#", u"a", false},
    });
}

TEST(StringMatchTest, RangesTakeLettersAndNumbersBetweenTheirBounds)
{
    ExpectVerdicts({
        {"letter", u"%[a:f%]", u"c", true},
        {"bounds turned round", u"%[f:a%]", u"c", true},
        {"bound itself", u"%[a:f%]", u"f", true},
        {"other case", u"%[a:f%]", u"C", false},
        {"outside", u"%[a:f%]", u"g", false},
        {"number", u"%[10:20%]", u"15", true},
        {"lower bound", u"%[10:20%]", u"10", true},
        {"upper bound", u"%[20:10%]", u"20", true},
        {"above", u"%[10:20%]", u"21", false},
        {"fraction", u"%[0.5:2%]", u"1.5", true},
        {"number begins with its point", u"%[0.1:0.9%]", u".5", true},
        {"bound begins with its point", u"%[.1:.9%]", u"0,5", true},
        {"zero is above all below one", u"%[0:0.5%]", u"0.7", true},
        {"zero is above all below one, inside", u"%[0:0.5%]", u"0.3", false},
        {"leading zeros", u"%[10:20%]", u"0015", true},
        {"missing bound", u"%[10:%]", u"15", false},
        {"unclosed", u"%[10:20", u"15", false},
        {"letter in a range of numbers", u"%[10:20%]", u"a", false},
        {"sought behind a star", u"*-%[10:20%]-*", u"a-9-15x-20-b", true},
        {"sought, the unit behind never fits", u"*-%[10:20%]-*", u"a-9-15x-20", false},
        {"sought, a range that the text spells", u"*-%[10:20%]", u"a-%[10:20%]", true},
        {"sought without case", u"*\u00E9%[a:f%]", u"-\u00C9c", true},
        {"more digits than a double has", u"%[1:5%]", u"3.1415926535897932384626433832795028841971",
         true},
    });

    const std::u16string huge(400, u'9');
    const std::u16string small = u"0." + std::u16string(400, u'0') + u"1";
    const std::u16string below = u"%[1:" + huge + u"%]";
    EXPECT_TRUE(StringMatch(below.c_str(), std::u16string(308, u'9').c_str(), false));
    EXPECT_TRUE(StringMatch(below.c_str(), (u"1" + huge).c_str(), false));
    EXPECT_FALSE(StringMatch(u"%[1:2%]", huge.c_str(), false));
    EXPECT_FALSE(StringMatch(u"%[1:2%]", small.c_str(), false));
}

TEST(StringMatchTest, NegationExcludesWhatStandsInIt)
{
    ExpectVerdicts({
        {"other", u"%^abc%^", u"abd", true},
        {"the same", u"%^abc%^", u"abc", false},
        {"longer", u"%^abc%^", u"abcd", true},
        {"empty", u"%^abc%^", u"", false},
        {"unclosed", u"%^abc", u"abc", false},
        {"unclosed, other", u"%^abc", u"abd", true},
        {"not directly before a star", u"%^a%^*", u"ab", false},
        {"rest stands later", u"%^a%^b", u"xxb", true},
        {"rest directly behind", u"%^a%^b", u"ab", false},
        {"rest is missing", u"%^a%^b", u"xx", false},
    });
}

TEST(StringMatchTest, TheCaseFlagRulesPlainUnitsAlone)
{
    EXPECT_FALSE(StringMatch(u"c1", u"C1", true));
    EXPECT_TRUE(StringMatch(u"c1", u"C1", false));
    EXPECT_TRUE(StringMatch(u"%[a:c%]%c", u"bX", true));
    EXPECT_FALSE(StringMatch(u"%[a:c%]%c", u"BX", false));
}

TEST(StringMatchTest, TheResidueHoldsWhatStarsTookOnFailedWaysToo)
{
    const struct
    {
        const char16_t* m_Pattern;
        const char16_t* m_Text;
        bool m_Matches;
        const char16_t* m_Residue;
    } rows[] = {
        {u"abc*", u"abcdef", true, u"def"},
        {u"a?c", u"abc", true, u"b"},
        {u"*abc", u"abc", true, u"abc"},
        {u"%#", u"", true, u""},
        {u"%i*", u"12x", true, u"2x"},
        {u"*", u"", true, u""},
        {u"?b", u"ac", false, u"a"},
        {u"a*", u"a*", true, u"*"},
        {u"?", u"?", true, u""},
        {u"%^a%^*", u"b", true, u"b"},
    };
    for (const auto& row : rows)
    {
        const CString name(row.m_Pattern);
        SCOPED_TRACE(std::string(name.View().begin(), name.View().end()));
        CString residue(u"old");
        EXPECT_EQ(StringMatchWithResidue(row.m_Pattern, row.m_Text, residue, false), row.m_Matches);
        EXPECT_EQ(residue.View(), std::u16string_view(row.m_Residue));
    }
}

TEST(StringMatchTest, NullCountsAsEmpty)
{
    CString residue(u"old");

    EXPECT_TRUE(StringMatch(nullptr, nullptr, false));
    EXPECT_FALSE(StringMatchWithResidue(nullptr, u"x", residue, false));

    EXPECT_TRUE(residue.IsEmpty());
}

} // namespace
} // namespace utility
