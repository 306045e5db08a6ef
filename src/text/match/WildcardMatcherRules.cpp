#include "text/match/WildcardItems.h"
#include "text/match/WildcardMatcher.h"

namespace utility
{

bool CWildcardMatcher::Evaluate()
{
    switch (m_Call.GetKind())
    {
    case ECall::Rule:
        return EvaluateRule();
    case ECall::Star:
        return EvaluateStar(m_Call.GetPattern());
    case ECall::Run:
    case ECall::PointedRun:
        return EvaluateRun();
    case ECall::Alternatives:
        return EvaluateAlternatives();
    }
    return Answer(false);
}

bool CWildcardMatcher::Match()
{
    if (m_Text[0] == 0 && m_Pattern.IsEmptyItem())
        return Answer(true);

    bool isAnswered = Evaluate();
    while (!isAnswered || !m_Frames.IsEmpty())
        isAnswered = isAnswered ? Resume() : Evaluate();
    return m_Answer.m_Matches;
}

/// Applies the rule for the pattern's place; units that leave nothing to come back for are passed
/// in a row.
bool CWildcardMatcher::EvaluateRule()
{
    for (;;)
    {
        const std::uint32_t pattern = m_Call.GetPattern();
        const std::uint32_t text = m_Call.GetText();
        const CWildcardPlace& place = m_Places[pattern];
        if (place.m_Kind == EWildcard::AnyRun)
            return EvaluateStar(pattern + 1);

        ++m_Steps;
        const char16_t unit = m_Text[text];
        if (unit == 0)
            return EvaluateAtEnd(place);

        // Before any meaning that the place has: a special character in the text meets itself.
        const bool isEqual = place.IsMetBy(unit);
        if (isEqual || place.m_Kind == EWildcard::AnyUnit)
        {
            const bool comesBack =
                (m_Call.TriesOr() && place.m_Next != 0) || (m_Residue && !isEqual);
            if (comesBack && Begin(EWait::BehindUnit))
                return true;
            Call(pattern + 1, text + 1);
        }
        else if (place.m_Kind == EWildcard::Or)
        {
            Call(place.m_AfterGroup, text, true);
        }
        else
        {
            return (place.m_Classes & GetUnitClass(unit)) == 0 ? Fail(place) : EvaluateItem(place);
        }
    }
}

/// At the text's end no alternative is looked for.
bool CWildcardMatcher::EvaluateAtEnd(const CWildcardPlace& place)
{
    switch (place.m_Kind)
    {
    case EWildcard::End:
        return Answer(true);
    case EWildcard::Or:
    case EWildcard::Close:
        return Call(place.m_AfterGroup, m_Call.GetText(), true);
    case EWildcard::Open:
        return Call(m_Call.GetPattern() + 2, m_Call.GetText());
    case EWildcard::Not:
        return Answer(m_Call.IsNegated());
    default:
        return Answer(false);
    }
}

/// An item that the text's unit may begin.
bool CWildcardMatcher::EvaluateItem(const CWildcardPlace& place)
{
    const std::uint32_t pattern = m_Call.GetPattern();
    const std::uint32_t text = m_Call.GetText();
    switch (place.m_Kind)
    {
    case EWildcard::Unit:
        return Call(pattern + 2, text + 1);
    case EWildcard::Run:
    case EWildcard::RealNumber:
        m_Call = {ECall::Run, pattern, text, false, m_Call.IsNegated()};
        return EvaluateRun();
    case EWildcard::UnitName:
        return Begin(EWait::BehindUnitName) || TryUnitNames(m_Frames.GetTop());
    case EWildcard::Prefix:
    case EWildcard::CapitalPrefix:
        return IsWildPrefix(m_Text[text], place.m_Kind == EWildcard::CapitalPrefix)
                   ? Call(pattern + 2, text + 1)
                   : Fail(place);
    case EWildcard::Range:
        return EvaluateRange(place);
    case EWildcard::Open:
        return Begin(EWait::First) || Call(pattern + 2, text);
    case EWildcard::Close:
        return Call(pattern + 2, text);
    case EWildcard::Not:
        return EvaluateNegation();
    default:
        return Fail(place);
    }
}

bool CWildcardMatcher::EvaluateRange(const CWildcardPlace& place)
{
    const CWildcardRange& range = m_Pattern.GetRange(place);
    const CWrittenNumber found = range.Find(m_Text, m_Numbers, m_Call.GetText());
    const bool fits = found.m_End != m_Call.GetText() && range.Fits(m_Numbers, found);
    return fits ? Call(range.GetEnd(), found.m_End) : Fail(place);
}

/// What stands behind the %^ is asked with the flag turned round; its failure is final.
bool CWildcardMatcher::EvaluateNegation()
{
    const std::uint32_t pattern = m_Call.GetPattern();
    const bool isNegated = m_Call.IsNegated();
    m_Call = {ECall::Rule, pattern, m_Call.GetText(), false, isNegated};
    if (Begin(EWait::Negation))
        return true;
    m_Call = {ECall::Rule, pattern + 2, m_Call.GetText(), false, !isNegated};
    return false;
}

/// A star whose pattern goes on at `rest`: at a star of the pattern, or at one that a negation has
/// put in front of it.
bool CWildcardMatcher::EvaluateStar(std::uint32_t rest)
{
    ++m_Steps;
    const std::uint32_t text = m_Call.GetText();
    const EWildcard next = m_Places[rest].m_Kind;
    if (next == EWildcard::End || next == EWildcard::Or)
    {
        m_Answer = {true};
        if (m_Residue)
            m_Answer.m_Back = m_Residue->RestFrom(text);
        return true;
    }
    if (m_Text[text] == 0)
        return next == EWildcard::AnyRun ? Call(rest, text) : Answer(false);
    if (!m_Residue)
        return EvaluateSeekingStar(rest);
    return Begin(EWait::StarTakes) || Call(rest, text + 1);
}

/// The unit here belongs to the run: either it is the last one, or the run goes on.
bool CWildcardMatcher::EvaluateRun()
{
    ++m_Steps;
    const std::uint32_t rest = m_Call.GetPattern() + 2;
    while (m_Steps < m_StepsWithoutMemory && IsRefused(rest, m_Call.GetText() + 1))
    {
        ++m_Steps;
        if (!TakeRunUnit(m_Call))
            return Answer(false);
    }
    return Begin(EWait::BehindRun) || Call(rest, m_Call.GetText() + 1);
}

bool CWildcardMatcher::EvaluateAlternatives()
{
    ++m_Steps;
    const std::uint32_t pattern = m_Call.GetPattern();
    if (m_Places[pattern].m_Next == 0)
        return Call(pattern, m_Call.GetText(), true);
    return Begin(EWait::Alternative) || Call(pattern, m_Call.GetText(), true);
}

/// The call fails at that place of the pattern: the next alternative behind it decides, if it may.
bool CWildcardMatcher::Fail(const CWildcardPlace& place)
{
    if (!m_Call.TriesOr() || place.m_Next == 0)
        return Answer(false);
    // In a frame only for the answer's sake: long rows of alternatives are else walked over and
    // over.
    return (m_Memory && Begin(EWait::Last)) || Call(place.m_Next, m_Call.GetText(), true);
}

} // namespace utility
