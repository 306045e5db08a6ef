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
        return ResumeStar(frame);
    case EWait::StarSeeks:
        return ResumeSeekingStar(frame);
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
    const std::uint32_t rest = GetRest(frame.m_State);
    m_State = frame.m_State;
    if (!m_Answer.m_Matches && frame.m_Wait == EWait::StarTakes)
    {
        frame.m_Wait = EWait::StarStays;
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

bool CWildcardMatcher::ResumeSeekingStar(CFrame& frame)
{
    if (!m_Answer.m_Matches)
        return Seek(frame);

    if (m_Memory)
        GetStarBounds(frame.m_State).m_MatchedBefore = frame.m_Sought;
    return Finish(frame, true);
}

/// Asks for what stands behind the star at the next place where it may match; the text's end
/// is one.
bool CWildcardMatcher::Seek(CFrame& frame)
{
    const std::uint32_t rest = GetRest(frame.m_State);
    std::uint32_t place = frame.m_Sought;
    if (IsPlain(rest))
        place = FindUnit(m_Pattern[rest], place);
    if (place > m_Text.size())
    {
        if (m_Memory)
            GetStarBounds(frame.m_State).m_RefusedFrom = frame.m_State.m_Text;
        return Fail(frame, rest);
    }
    frame.m_Sought = place + 1;
    m_State = {rest, place, ECall::Rule, false, frame.m_State.m_Negated};
    return false;
}

/// The first place from there on where the text holds the unit, or one behind the text's end.
std::uint32_t CWildcardMatcher::FindUnit(char16_t unit, std::uint32_t text) const
{
    const char16_t upper = m_CaseSensitive ? unit : ToUpper(unit);
    const char16_t lower = m_CaseSensitive ? unit : ToLower(upper);
    const auto length = static_cast<std::uint32_t>(m_Text.size());
    while (text < length && m_Text[text] != upper && m_Text[text] != lower)
        ++text;
    return text < length ? text : length + 1;
}

/// The shortest run first; a run that cannot go on is a failure for good.
bool CWildcardMatcher::ResumeRun(CFrame& frame)
{
    CState state = frame.m_State;
    if (m_Answer.m_Matches || !TakeRunUnit(state))
        return Finish(frame, m_Answer.m_Matches);
    return CallLast(frame, state);
}

bool CWildcardMatcher::ResumeGroup(CFrame& frame)
{
    if (m_Answer.m_Matches)
        return Finish(frame, true);
    if (frame.m_Wait == EWait::Later)
        return Fail(frame, m_Scan.AfterAlternatives(frame.m_Sought));

    const std::uint32_t first = frame.m_State.m_Pattern + 2;
    const std::uint32_t next = m_Scan.NextAlternative(first);
    if (!m_Scan.IsAlternative(next))
        return Fail(frame, m_Scan.AfterAlternatives(first));

    const CState later{next, frame.m_State.m_Text, ECall::Alternatives, false,
                       frame.m_State.m_Negated};
    if (!frame.m_State.m_TryOr)
        return CallLast(frame, later);
    frame.m_Wait = EWait::Later;
    frame.m_Sought = next;
    m_State = later;
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
    m_State = state;
    if (frame.m_Cell == NO_CELL && !m_Residue)
        m_Frames.pop_back(); // nothing to come back for
    else
        frame.m_Wait = EWait::Last;
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
