#include "platform/base/String.h"
#include "text/match/LiteralMatcher.h"
#include "text/match/RandomPattern.h"
#include "text/match/StringMatch.h"
#include "text/match/WildcardMatcher.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace utility
{
namespace
{

std::string Show(const std::u16string& text)
{
    std::string shown;
    for (char16_t unit : text)
        shown += unit < 0x80 ? static_cast<char>(unit) : '~';
    return shown;
}

/// The nightly run draws ten times as many pairs.
int CountOfPairs()
{
    return std::getenv("UTILITY_NIGHTLY") ? 1'000'000 : 100'000;
}

struct CMatch
{
    bool m_Matches;
    CString m_Residue;

    bool Agrees(const CLiteralMatch& literal) const
    {
        return m_Matches == literal.m_Matches &&
               m_Residue.View() ==
                   std::u16string_view(literal.m_Residue).substr(0, CMatchResidue::LIMIT);
    }
};

/// By the full rules, with answers remembered from the first step on.
CMatch MatchRemembering(const CRandomPattern& pair)
{
    CMatch match{false, u"old"};
    CMatchResidue residue(pair.GetText().c_str());
    const CWildcardPattern pattern(pair.GetPattern(), pair.IsCaseSensitive());
    CWildcardMatcher matcher(pattern, pair.GetText().c_str(), &residue, 0);
    match.m_Matches = matcher.Match();
    residue.Write(matcher.GetResidue(), match.m_Residue);
    return match;
}

/// The same without a residue, where stars go another way.
bool MatchRememberingAlone(const CRandomPattern& pair)
{
    const CWildcardPattern pattern(pair.GetPattern(), pair.IsCaseSensitive());
    return CWildcardMatcher(pattern, pair.GetText().c_str(), nullptr, 0).Match();
}

void ExpectAgreement(const CRandomPattern& pair, const CLiteralMatch& literal)
{
    const char16_t* const pattern = pair.GetPattern().c_str();
    const char16_t* const text = pair.GetText().c_str();
    const bool caseSensitive = pair.IsCaseSensitive();
    CMatch match{false, u"old"};
    match.m_Matches = StringMatchWithResidue(pattern, text, match.m_Residue, caseSensitive);
    const CMatch remembering = MatchRemembering(pair);
    const bool matches = StringMatch(pattern, text, caseSensitive);
    const bool alone = MatchRememberingAlone(pair);

    ASSERT_TRUE(match.Agrees(literal) && remembering.Agrees(literal) &&
                matches == literal.m_Matches && alone == literal.m_Matches)
        << "pattern " << Show(pair.GetPattern()) << ", text " << Show(pair.GetText()) << ", case "
        << caseSensitive << ": literal " << literal.m_Matches << " with residue "
        << Show(literal.m_Residue) << ", ours " << matches << ", " << alone << ", "
        << match.m_Matches << " with " << Show(std::u16string(match.m_Residue.View()))
        << ", remembering " << remembering.m_Matches << " with "
        << Show(std::u16string(remembering.m_Residue.View()));
}

TEST(StringMatchRandomTest, AgreesWithTheLiteralRulesOnAllItemsWithAndWithoutResidue)
{
    const int pairs = CountOfPairs();
    CRandomPattern random;
    int matched = 0;
    int drawnAnew = 0;
    for (int pair = 0; pair < pairs && !HasFatalFailure(); ++pair)
    {
        random.Next();
        auto literal =
            MatchLiterally(random.GetPattern(), random.GetText(), random.IsCaseSensitive());
        for (; !literal; ++drawnAnew)
        {
            random.Next();
            literal =
                MatchLiterally(random.GetPattern(), random.GetText(), random.IsCaseSensitive());
        }
        matched += literal->m_Matches ? 1 : 0;
        ExpectAgreement(random, *literal);
    }
    RecordProperty("Matched", matched);
    RecordProperty("DrawnAnew", drawnAnew);
    EXPECT_GE(matched, pairs / 4);
    EXPECT_LT(drawnAnew, pairs / 100);
}

} // namespace
} // namespace utility
