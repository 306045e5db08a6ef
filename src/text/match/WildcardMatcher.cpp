#include "text/match/WildcardMatcher.h"

#include "platform/base/CaseFold.h"
#include "text/match/WildcardChars.h"
#include "text/match/WildcardItems.h"

namespace utility
{

CWildcardMatcher::CWildcardMatcher(std::u16string_view pattern, std::u16string_view text,
                                   bool caseSensitive, CMatchResidue* residue,
                                   std::uint64_t stepsWithoutMemory)
    : m_Pattern(pattern),
      m_Text(text),
      m_CaseSensitive(caseSensitive),
      m_Residue(residue),
      m_StepsWithoutMemory(stepsWithoutMemory),
      m_Scan(pattern),
      m_Range(pattern, text),
      // Without a | there is no next alternative to try.
      m_State{0, 0, ECall::Rule, pattern.find(GetWildOrChar()) != pattern.npos, false},
      m_FrameMemory(m_FirstFrames, sizeof(m_FirstFrames)),
      m_Frames(&m_FrameMemory)
{
    m_Frames.reserve(sizeof(m_FirstFrames) / (sizeof(CFrame)));
}

bool CWildcardMatcher::Match()
{
    // The one pattern for the empty text; within a longer pattern %# is no item.
    const bool isEmptyItem = m_Pattern.size() == 2 && m_Scan.IsItem(0, GetWildEmptyChar());
    if (isEmptyItem && m_Text.empty())
        return Answer(true);

    bool isAnswered = Evaluate();
    while (!isAnswered || !m_Frames.empty())
        isAnswered = isAnswered ? Resume() : Evaluate();
    return m_Answer.m_Matches;
}

CResiduePiece CWildcardMatcher::GetResidue() const
{
    return m_Residue ? m_Residue->Join(m_Answer.m_Front, m_Answer.m_Back) : 0;
}

bool CWildcardMatcher::Evaluate()
{
    switch (m_State.m_Call)
    {
    case ECall::Rule:
        return EvaluateRule();
    case ECall::Star:
        return EvaluateStar(m_State.m_Pattern);
    case ECall::Run:
    case ECall::SeparatedRun:
        return EvaluateRun();
    case ECall::Alternatives:
        return EvaluateAlternatives();
    }
    return Answer(false);
}

/// Applies the rule for the pattern's unit; units that leave nothing to come back for are passed
/// in a row.
bool CWildcardMatcher::EvaluateRule()
{
    for (;;)
    {
        const char16_t unit = PatternAt(m_State.m_Pattern);
        if (unit == u'*')
            return EvaluateStar(m_State.m_Pattern + 1);

        ++m_Steps;
        if (IsAtTextEnd())
            return EvaluateAtEnd();

        // Before any meaning that the unit has: a special character in the text meets itself.
        const bool isEqual = AreEqual(unit, m_Text[m_State.m_Text]);
        if (isEqual || unit == u'?')
        {
            m_State.m_TryOr = m_State.m_TryOr && HasAlternative(m_State.m_Pattern);
            if ((m_State.m_TryOr || (m_Residue && !isEqual)) && Begin(EWait::BehindUnit))
                return true;
            Call(m_State.m_Pattern + 1, m_State.m_Text + 1);
        }
        else if (unit == GetWildOrChar())
        {
            Call(m_Scan.AfterGroup(m_State.m_Pattern), m_State.m_Text, true);
        }
        else
        {
            return unit == GetWildFormatChar() ? EvaluateItem() : Fail(m_State.m_Pattern);
        }
    }
}

/// At the text's end no alternative is looked for.
bool CWildcardMatcher::EvaluateAtEnd()
{
    const std::uint32_t pattern = m_State.m_Pattern;
    if (pattern == m_Pattern.size())
        return Answer(true);
    if (m_Pattern[pattern] == GetWildOrChar() || m_Scan.IsItem(pattern, GetWildCloseChar()))
        return Call(m_Scan.AfterGroup(pattern), m_State.m_Text, true);
    if (m_Scan.IsItem(pattern, GetWildOpenChar()))
        return Call(pattern + 2, m_State.m_Text);
    return Answer(m_Scan.IsItem(pattern, GetWildNotChar()) && m_State.m_Negated);
}

/// A star whose pattern goes on at `rest`: at a star of the pattern, or at one that a negation has
/// put in front of it.
bool CWildcardMatcher::EvaluateStar(std::uint32_t rest)
{
    ++m_Steps;
    const char16_t next = PatternAt(rest);
    if (rest == m_Pattern.size() || next == GetWildOrChar())
    {
        const auto length = static_cast<std::uint32_t>(m_Text.size());
        m_Answer = {true};
        if (m_Residue)
            m_Answer.m_Back = m_Residue->Part(m_State.m_Text, length - m_State.m_Text);
        return true;
    }
    if (IsAtTextEnd())
        return next == u'*' ? Call(rest, m_State.m_Text) : Answer(false);
    if (!m_Residue)
        return EvaluateSeekingStar(rest);
    return Begin(EWait::StarTakes) || Call(rest, m_State.m_Text + 1);
}

/// Without a residue the order of the ways is free: a star matches if what stands behind it does so
/// somewhere from here to the text's end.
bool CWildcardMatcher::EvaluateSeekingStar(std::uint32_t rest)
{
    if (m_Steps >= m_StepsWithoutMemory)
    {
        BeginRemembering();
        const CStarBounds& bounds = GetStarBounds(m_State);
        if (m_State.m_Text < bounds.m_MatchedBefore)
            return Answer(true);
        if (m_State.m_Text >= bounds.m_RefusedFrom)
            return Fail(rest);
    }
    if (!m_State.m_TryOr)
        Push(EWait::StarSeeks, NO_CELL); // the bounds remember for it
    else if (Begin(EWait::StarSeeks))
        return true;
    m_Frames.back().m_Sought = m_State.m_Text;
    return Seek(m_Frames.back());
}

bool CWildcardMatcher::EvaluateItem()
{
    const std::uint32_t pattern = m_State.m_Pattern;
    const std::uint32_t text = m_State.m_Text;
    const char16_t written = PatternAt(pattern + 1);
    const char16_t item = ToLower(written);
    switch (item)
    {
    case u'c':
    case u'd':
        return IsWildItemUnit(written, m_Text[text]) ? Call(pattern + 2, text + 1)
                                                     : Fail(pattern + 1);
    case u'p':
        return IsWildPrefix(m_Text[text], written != item) ? Call(pattern + 2, text + 1)
                                                           : Fail(pattern + 1);
    case u'i':
    case u'f':
    case u'a':
    case u's':
        if (!IsWildItemUnit(written, m_Text[text]))
            return Fail(pattern + 1);
        m_State.m_Call = ECall::Run;
        return false;
    case u'u':
        return Begin(EWait::BehindUnitName) || TryUnitNames(m_Frames.back());
    case u'[':
        return EvaluateRange();
    case u'{':
        return Begin(EWait::First) || Call(pattern + 2, text);
    case u'}':
        return Call(pattern + 2, text);
    case u'^':
        return EvaluateNegation();
    default:
        return Fail(pattern + 1);
    }
}

bool CWildcardMatcher::EvaluateRange()
{
    std::uint32_t pattern = m_State.m_Pattern + 2;
    std::uint32_t text = m_State.m_Text;
    return m_Range.Take(pattern, text) ? Call(pattern, text) : Fail(m_State.m_Pattern + 1);
}

/// What stands behind the %^ is asked with the flag turned round.
bool CWildcardMatcher::EvaluateNegation()
{
    if (Begin(EWait::Negation))
        return true;
    m_State.m_Negated = !m_State.m_Negated;
    return Call(m_State.m_Pattern + 2, m_State.m_Text);
}

/// The unit here belongs to the run: either it is the last one, or the run goes on.
bool CWildcardMatcher::EvaluateRun()
{
    ++m_Steps;
    while (m_Steps < m_StepsWithoutMemory && IsRefused(m_State.m_Pattern + 2, m_State.m_Text + 1))
    {
        ++m_Steps;
        if (!TakeRunUnit(m_State))
            return Answer(false);
    }
    return Begin(EWait::BehindRun) || Call(m_State.m_Pattern + 2, m_State.m_Text + 1);
}

bool CWildcardMatcher::EvaluateAlternatives()
{
    ++m_Steps;
    if (!HasAlternative(m_State.m_Pattern))
        return Call(m_State.m_Pattern, m_State.m_Text, true);
    return Begin(EWait::Alternative) || Call(m_State.m_Pattern, m_State.m_Text, true);
}

/// Puts the present call on the stack, to go on with it later; true if its answer is known already.
bool CWildcardMatcher::Begin(EWait wait)
{
    CMatchCell cell = NO_CELL;
    if (m_Steps >= m_StepsWithoutMemory)
    {
        BeginRemembering();
        cell = m_Memory->FindCell(GetKey(m_State), m_State.m_Text);
        if (m_Memory->Recall(cell, m_Answer))
            return true;
    }
    Push(wait, cell);
    return false;
}

void CWildcardMatcher::BeginRemembering()
{
    if (m_Memory)
        return;
    m_Memory.emplace(m_Residue != nullptr);
    m_Scan.Prepare();
    if (!m_Residue)
        m_StarBounds.resize(2 * (m_Pattern.size() + 1));
}

void CWildcardMatcher::Push(EWait wait, CMatchCell cell)
{
    CFrame& frame = m_Frames.emplace_back(); // filled in place: copies of fresh frames are slow
    frame.m_State = m_State;
    frame.m_Wait = wait;
    frame.m_Cell = cell;
}

/// Asks whether the pattern matches from there on; the negation flag stays. Always false.
bool CWildcardMatcher::Call(std::uint32_t pattern, std::uint32_t text, bool tryOr)
{
    m_State = {pattern, text, ECall::Rule, tryOr, m_State.m_Negated};
    return false;
}

/// The call fails at that place of the pattern: the next alternative behind it decides, if it may.
bool CWildcardMatcher::Fail(std::uint32_t pattern)
{
    const std::uint32_t next = m_State.m_TryOr ? m_Scan.NextAlternative(pattern) : 0;
    if (!m_State.m_TryOr || !m_Scan.IsAlternative(next))
        return Answer(false);
    // In a frame only for the answer's sake: long rows of alternatives are else walked over and
    // over.
    return (m_Memory && Begin(EWait::Last)) || Call(next, m_State.m_Text, true);
}

bool CWildcardMatcher::Answer(bool matches)
{
    m_Answer = {matches};
    return true;
}

/// Whether the pattern holds a unit there that matches itself alone.
bool CWildcardMatcher::IsPlain(std::uint32_t pattern) const
{
    const char16_t unit = PatternAt(pattern);
    return unit != 0 && unit != u'*' && unit != u'?' && unit != GetWildOrChar() &&
           unit != GetWildFormatChar();
}

/// Whether a call there, which tries no alternative, fails at once for a plain unit or the end.
bool CWildcardMatcher::IsRefused(std::uint32_t pattern, std::uint32_t text) const
{
    const bool isTextEnd = text == m_Text.size();
    if (pattern == m_Pattern.size())
        return !isTextEnd;
    return IsPlain(pattern) && (isTextEnd || !AreEqual(m_Pattern[pattern], m_Text[text]));
}

/// Moves a run to its next unit; false if it has none.
bool CWildcardMatcher::TakeRunUnit(CState& state) const
{
    if (++state.m_Text == m_Text.size())
        return false;
    const char16_t item = PatternAt(state.m_Pattern + 1);
    const char16_t unit = m_Text[state.m_Text];
    if (state.m_Call == ECall::Run && IsWildSeparator(item, unit))
        state.m_Call = ECall::SeparatedRun;
    else if (!IsWildItemUnit(item, unit))
        return false;
    return true;
}

/// Where the pattern goes on behind a star.
std::uint32_t CWildcardMatcher::GetRest(const CState& star)
{
    const bool isWritten = star.m_Call == ECall::Rule; // and not put in by a negation
    return star.m_Pattern + (isWritten ? 1 : 0);
}

CWildcardMatcher::CStarBounds& CWildcardMatcher::GetStarBounds(const CState& star)
{
    return m_StarBounds[2 * std::size_t{GetRest(star)} + (star.m_Negated ? 1 : 0)];
}

std::uint64_t CWildcardMatcher::GetKey(const CState& state)
{
    constexpr std::uint64_t CALLS = 5;
    const std::uint64_t call = state.m_Pattern * CALLS + static_cast<std::uint64_t>(state.m_Call);
    return call << 2 | (state.m_TryOr ? 2u : 0u) | (state.m_Negated ? 1u : 0u);
}

} // namespace utility
