#include "platform/base/Encoding.h"
#include "text/names/LiteralNameRange.h"
#include "text/names/NameRange.h"
#include "text/names/RandomNameScript.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace utility
{
namespace
{

using EStep = CRandomNameScript::EStep;

int CountOfScripts()
{
    return std::getenv("UTILITY_NIGHTLY") ? 1'000'000 : 3'000;
}

std::vector<std::u16string> NamesOf(CNameRange& range)
{
    std::vector<std::u16string> names;
    POSITION position = nullptr;
    for (CString name = range.First(position); !name.IsEmpty(); name = range.Next(position))
        names.emplace_back(name.View());
    return names;
}

/// One range kept twice, as the library does it and by the letter.
class CRangePair
{
public:
    explicit CRangePair(const CNameRangeRules& rules)
        : m_Range(rules.m_Start, rules.m_End, rules.m_Between, rules.m_Item, rules.m_CaseSensitive,
                  rules.m_Ordered),
          m_Literal(rules)
    {
    }

    /// True if both gave the same answer; the changes count as answered.
    bool Do(const CRandomNameScript::CStep& step)
    {
        const CString text(step.m_Text);
        switch (step.m_Step)
        {
        case EStep::Set:
            m_Range.SetString(text);
            m_Literal.SetString(step.m_Text);
            return m_Range.IsValid() == m_Literal.IsValid();
        case EStep::Add:
            m_Range.Add(text);
            m_Literal.Add(step.m_Text);
            return true;
        case EStep::Delete:
            return m_Range.Delete(text) == m_Literal.Delete(step.m_Text);
        case EStep::Contains:
            return m_Range.Contains(text) == m_Literal.Contains(step.m_Text);
        }
        return false;
    }

    /// The same items in the same order, and the same names.
    bool Agrees()
    {
        const std::vector<std::u16string> names = m_Literal.GetNames();
        return m_Range.GetString().View() == m_Literal.GetString() && NamesOf(m_Range) == names &&
               m_Range.Count() == static_cast<int>(names.size());
    }

    std::string Show()
    {
        return ToUtf8(m_Range.GetString().View()) + ", by the letter " +
               ToUtf8(m_Literal.GetString());
    }

private:
    CNameRange m_Range;
    CLiteralNameRange m_Literal;
};

/// Walking name by name has no time for digits that ran together into a long span.
bool IsShort(const CRandomNameScript& script)
{
    constexpr long long MOST_NAMES = 40;
    const auto& steps = script.GetSteps();
    return std::all_of(steps.begin(), steps.end(),
                       [&](const CRandomNameScript::CStep& step)
                       {
                           CLiteralNameRange range(script.GetRules());
                           range.SetString(step.m_Text);
                           return range.CountNames() <= MOST_NAMES;
                       });
}

void RunScript(const CRandomNameScript& script)
{
    CRangePair pair(script.GetRules());
    std::string trace;
    for (const CRandomNameScript::CStep& step : script.GetSteps())
    {
        trace += "SADC"[static_cast<int>(step.m_Step)] + (" " + ToUtf8(step.m_Text) + "\n");
        const bool answersAlike = pair.Do(step);
        ASSERT_TRUE(answersAlike && pair.Agrees())
            << trace << "case " << script.GetRules().m_CaseSensitive << ", ordered "
            << script.GetRules().m_Ordered << ": " << pair.Show();
    }
}

TEST(NameRangeRandomTest, ScriptsGiveTheItemsThatTheRulesGiveByTheLetter)
{
    const int scripts = CountOfScripts();
    CRandomNameScript script;
    int drawnAnew = 0;
    for (int left = scripts; left > 0 && !testing::Test::HasFatalFailure(); --left)
    {
        for (script.Next(); !IsShort(script); script.Next())
            ++drawnAnew;
        RunScript(script);
    }
    EXPECT_LT(drawnAnew, scripts / 4);
}

} // namespace
} // namespace utility
