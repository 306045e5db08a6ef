#include "text/match/WildcardMatcher.h"

#include "platform/base/String.h"
#include "text/match/LiteralMatcher.h"
#include "text/match/StringMatch.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace utility
{
namespace
{

std::u16string Repeat(std::u16string_view piece, std::size_t count)
{
    std::u16string text;
    for (; count > 0; --count)
        text += piece;
    return text;
}

/// Steps of a match by the full rules.
std::uint64_t CountSteps(const std::u16string& pattern, const std::u16string& text, bool matches,
                         CMatchResidue* residue)
{
    const CWildcardPattern ready(pattern, false);
    CWildcardMatcher matcher(ready, text.c_str(), residue);
    EXPECT_EQ(matcher.Match(), matches);
    return matcher.GetSteps();
}

TEST(WildcardMatcherTest, ThirtyStarsOnAThousandUnitsTakeFewSteps)
{
    const std::u16string text(1000, u'a');
    const std::u16string stars = Repeat(u"*a", 30);
    CMatchResidue residue(text.c_str());

    EXPECT_LT(CountSteps(stars, text, true, nullptr), 200'000u);
    EXPECT_LT(CountSteps(stars, text, true, &residue), 200'000u);
    EXPECT_LT(CountSteps(stars + u"b", text, false, nullptr), 200'000u);
    EXPECT_TRUE(StringMatch(stars.c_str(), text.c_str(), false));
    EXPECT_FALSE(StringMatch((stars + u"b").c_str(), text.c_str(), false));
}

TEST(WildcardMatcherTest, NoShapeOfPatternIsExponential)
{
    const struct
    {
        const char* m_Name;
        std::u16string m_Pattern;
    } rows[] = {
        {"words", Repeat(u"%a", 30) + u"-"},
        {"letters and digits", Repeat(u"%s*", 20) + u"-"},
        {"groups", Repeat(u"%{a|a|aa%}", 20) + u"-"},
        {"nested groups", Repeat(u"%{a|", 20) + u"*-"},
        {"negations", Repeat(u"%^a%^", 16) + u"-"},
        {"groups with stars", Repeat(u"%{*a%}", 12) + u"-"},
        {"alternatives", u"%{" + Repeat(u"*a|", 20) + u"b%}" + Repeat(u"*a", 10) + u"-"},
    };
    const std::u16string text(1000, u'a');
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        CMatchResidue residue(text.c_str());
        const CWildcardPattern pattern(row.m_Pattern, false);
        CWildcardMatcher matcher(pattern, text.c_str(), nullptr);
        matcher.Match();
        EXPECT_LT(matcher.GetSteps(), 64u * 1000u * 8u);
        CWildcardMatcher keeping(pattern, text.c_str(), &residue);
        keeping.Match();
        EXPECT_LT(keeping.GetSteps(), 64u * 1000u * 8u);
    }
}

TEST(WildcardMatcherTest, AHundredThousandUnitsMatch)
{
    const std::size_t length = 100'000;
    const std::u16string letters(length, u'a');
    const std::u16string digits(length, u'1');
    const struct
    {
        const char* m_Name;
        std::u16string m_Pattern;
        const std::u16string& m_Text;
        bool m_Matches;
    } rows[] = {
        {"literal", letters, letters, true},
        {"question marks", std::u16string(length, u'?'), letters, true},
        {"stars", u"*a*a*", letters, true},
        {"stars that fail", u"*a*b", letters, false},
        {"word", u"%a", letters, true},
        {"letters", Repeat(u"%c", length), letters, true},
        {"number", u"%f", digits, true},
        {"range", u"*%[1:2%]x", digits, false},
        {"negation", u"%^b%^*a", letters, true},
        {"alternatives", u"%{" + Repeat(u"b|", length) + u"%a%}", letters, true},
        {"unclosed groups", Repeat(u"%{", length), letters, false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Name);
        CString residue;
        EXPECT_EQ(StringMatch(row.m_Pattern.c_str(), row.m_Text.c_str(), true), row.m_Matches);
        EXPECT_EQ(StringMatchWithResidue(row.m_Pattern.c_str(), row.m_Text.c_str(), residue, true),
                  row.m_Matches);
    }
}

TEST(WildcardMatcherTest, TheResidueEndsAfterItsLimit)
{
    std::u16string text;
    for (std::size_t index = 0; index < 100'000; ++index)
        text += static_cast<char16_t>(u'a' + index % 26);
    CString residue;

    EXPECT_TRUE(StringMatchWithResidue(u"*", text.c_str(), residue, false));

    EXPECT_EQ(residue.View(), std::u16string_view(text).substr(0, CMatchResidue::LIMIT));
}

TEST(WildcardMatcherTest, AResidueOfExponentialLengthIsMadeFromSharedPieces)
{
    const std::u16string text(60, u'a');
    CString residue;

    EXPECT_FALSE(StringMatchWithResidue(Repeat(u"*", 40).append(u"b").c_str(), text.c_str(),
                                        residue, false));

    EXPECT_EQ(residue.View(), std::u16string(CMatchResidue::LIMIT, u'a'));
}

TEST(WildcardMatcherTest, NumbersFitRangesAsTheLiteralRulesSay)
{
    const std::u16string numbers[] = {u"0",    u"1",   u"9",  u"10",  u"11",        u"100",
                                      u"0100", u"101", u".5", u"0.5", u"1.0",       u"9,99",
                                      u"99.9", u"1.",  u".",  u"0.1", u"999999999", u"1000000000"};
    for (const std::u16string& low : numbers)
    {
        for (const std::u16string& high : numbers)
        {
            for (const std::u16string& number : numbers)
            {
                const std::u16string pattern = u"%[" + low + u":" + high + u"%]";
                EXPECT_EQ(StringMatch(pattern.c_str(), number.c_str(), false),
                          MatchLiterally(pattern, number, false)->m_Matches)
                    << std::string(pattern.begin(), pattern.end()) << " on "
                    << std::string(number.begin(), number.end());
            }
        }
    }
}

TEST(WildcardMatcherTest, TheFuzzCorpusMatchesAsTheLiteralRulesSay)
{
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(UTILITY_FUZZ_DATA "/Wildcard"))
    {
        SCOPED_TRACE(entry.path().filename().string());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        const std::u16string units(bytes.begin(), bytes.end());
        const std::size_t lineEnd = units.find(u'\n');
        ASSERT_NE(lineEnd, std::u16string::npos);
        const std::u16string pattern = units.substr(0, lineEnd);
        const std::u16string text = units.substr(lineEnd + 1);
        const auto literal = MatchLiterally(pattern, text, false, 10'000'000);
        ASSERT_TRUE(literal);
        ++files;

        CString residue;
        EXPECT_EQ(StringMatch(pattern.c_str(), text.c_str(), false), literal->m_Matches);
        StringMatchWithResidue(pattern.c_str(), text.c_str(), residue, false);
        EXPECT_EQ(residue.View(), std::u16string_view(literal->m_Residue).substr(0, 65536));
    }
    EXPECT_GE(files, 4);
}

} // namespace
} // namespace utility
