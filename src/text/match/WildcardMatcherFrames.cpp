#include "platform/base/CaseFold.h"
#include "text/match/WildcardChars.h"
#include "text/match/WildcardItems.h"
#include "text/match/WildcardMatcher.h"

namespace utility
{

/// Goes on with the frame on top, whose call is answered. Texts are put in front while calls
/// return, on failed ways too.
bool CWildcardMatcher::Resume()
{
    CFrame& frame = m_Frames.back();
    if (m_Residue)
    {
        frame.m_Front = m_Residue->Join(m_Answer.m_Front, frame.m_Front);
        frame.m_Back = m_Residue->Join(frame.m_Back, m_Answer.m_Back);
    }
    switch (frame.m_Wait)
    {
    case EWait::BehindUnit:
        TakeIntoResidue(frame);
        return m_Answer.m_Matches ? Finish(frame, true) : Fail(frame, frame.m_State.m_Pattern);
    case EWait::StarTakes:
    case EWait::StarStays:
    case EWait::StarEnds:
    case EWait::StarTries:
        return ResumeStar(frame);
    case EWait::BehindRun:
        return ResumeRun(frame);
    case EWait::First:
    case EWait::Later:
        return ResumeGroup(frame);
    case EWait::Alternative:
        return ResumeAlternative(frame);
    case EWait::Negation:
        return ResumeNegation(frame);
    case EWait::BehindUnitName:
        return m_Answer.m_Matches ? Finish(frame, true) : TryUnitNames(frame);
    case EWait::Last:
        break;
    }
    return Finish(frame, m_Answer.m_Matches);
}

bool CWildcardMatcher::ResumeStar(CFrame& frame)
{
    const bool isWritten = frame.m_State.m_Call == ECall::Rule; // and not put in by a negation
    const std::uint32_t rest = frame.m_State.m_Pattern + (isWritten ? 1 : 0);
    m_State = frame.m_State;
    const bool isTaking = frame.m_Wait == EWait::StarTakes;
    if (!m_Answer.m_Matches && (isTaking || frame.m_Wait == EWait::StarTries))
    {
        frame.m_Wait = isTaking ? EWait::StarStays : EWait::StarEnds;
        ++m_State.m_Text;
        m_State.m_TryOr = false;
        return false;
    }
    if (!m_Answer.m_Matches && frame.m_Wait == EWait::StarStays)
    {
        frame.m_Wait = EWait::StarEnds;
        return Call(rest, frame.m_State.m_Text);
    }
    TakeIntoResidue(frame);
    return m_Answer.m_Matches ? Finish(frame, true) : Fail(frame, rest);
}

/// The shortest run first; a run that cannot go on is a failure for good.
bool CWildcardMatcher::ResumeRun(CFrame& frame)
{
    const std::uint32_t next = frame.m_State.m_Text + 1;
    if (m_Answer.m_Matches || next == m_Text.size())
        return Finish(frame, m_Answer.m_Matches);

    const char16_t item = PatternAt(frame.m_State.m_Pattern + 1);
    CState state = frame.m_State;
    state.m_Text = next;
    if (state.m_Call == ECall::Run && IsWildSeparator(item, m_Text[next]))
        state.m_Call = ECall::SeparatedRun;
    else if (!IsWildItemUnit(item, m_Text[next]))
        return Finish(frame, false);
    return CallLast(frame, state);
}

bool CWildcardMatcher::ResumeGroup(CFrame& frame)
{
    const std::uint32_t first = frame.m_State.m_Pattern + 2;
    const std::uint32_t next = m_Scan.NextAlternative(first);
    if (m_Answer.m_Matches)
        return Finish(frame, true);
    if (frame.m_Wait == EWait::Later || !m_Scan.IsAlternative(next))
        return Fail(frame, m_Scan.AfterAlternatives(first));

    frame.m_Wait = EWait::Later;
    m_State = {next, frame.m_State.m_Text, ECall::Alternatives, false, frame.m_State.m_Negated};
    return false;
}

bool CWildcardMatcher::ResumeAlternative(CFrame& frame)
{
    CState state = frame.m_State;
    state.m_Pattern = m_Scan.NextAlternative(state.m_Pattern);
    if (m_Answer.m_Matches || !m_Scan.IsAlternative(state.m_Pattern))
        return Finish(frame, m_Answer.m_Matches);
    return CallLast(frame, state);
}

/// For %^X%^Y: not X with Y directly behind it, and Y from some later place on.
bool CWildcardMatcher::ResumeNegation(CFrame& frame)
{
    const bool isInverted = !frame.m_State.m_Negated; // the flag behind the %^ is the other one
    if (m_Answer.m_Matches == isInverted)
        return Finish(frame, false);

    const std::uint32_t stop = m_Scan.NegationEnd(frame.m_State.m_Pattern + 1);
    const bool isPlainOr =
        PatternAt(stop) == GetWildOrChar() && PatternAt(stop + 1) != GetWildNotChar();
    if (stop == m_Pattern.size() || isPlainOr)
        return Finish(frame, true);

    CState state = frame.m_State;
    state.m_Pattern = stop + 2;
    state.m_Call = ECall::Star;
    state.m_TryOr = false;
    return CallLast(frame, state);
}

/// Calls for the next unit name that stands in the text; the first whose rest matches decides.
bool CWildcardMatcher::TryUnitNames(CFrame& frame)
{
    const std::uint32_t pattern = frame.m_State.m_Pattern;
    const std::u16string_view text = m_Text.substr(frame.m_State.m_Text);
    while (frame.m_UnitNames < WILD_UNIT_NAMES)
    {
        const std::u16string_view name = GetWildUnitName(frame.m_UnitNames++);
        if (!text.starts_with(name))
            continue;
        frame.m_HasCalled = true;
        m_State = frame.m_State;
        return Call(pattern + 2, m_State.m_Text + static_cast<std::uint32_t>(name.size()));
    }
    return frame.m_HasCalled ? Finish(frame, false) : Fail(frame, pattern + 1);
}

/// Puts the text's unit in front, unless it equals the pattern's.
void CWildcardMatcher::TakeIntoResidue(CFrame& frame)
{
    if (!m_Residue)
        return;
    const CState& state = frame.m_State;
    const char16_t unit = state.m_Call == ECall::Star ? u'*' : PatternAt(state.m_Pattern);
    if (!AreEqual(unit, m_Text[state.m_Text]))
        frame.m_Front = m_Residue->Join(m_Residue->Part(state.m_Text, 1), frame.m_Front);
}

/// The answer of this call will be the frame's own.
bool CWildcardMatcher::CallLast(CFrame& frame, const CState& state)
{
    frame.m_Wait = EWait::Last;
    m_State = state;
    return false;
}

bool CWildcardMatcher::Fail(CFrame& frame, std::uint32_t pattern)
{
    const CState& state = frame.m_State;
    const std::uint32_t next = state.m_TryOr ? m_Scan.NextAlternative(pattern) : 0;
    if (!state.m_TryOr || !m_Scan.IsAlternative(next))
        return Finish(frame, false);
    return CallLast(frame, {next, state.m_Text, ECall::Rule, true, state.m_Negated});
}

/// Answers the frame's own call and takes it off the stack.
bool CWildcardMatcher::Finish(CFrame& frame, bool matches)
{
    m_Answer = {matches, frame.m_Front, frame.m_Back};
    if (frame.m_Cell != NO_CELL)
        m_Memory->Store(frame.m_Cell, m_Answer);
    m_Frames.pop_back();
    return true;
}

} // namespace utility
