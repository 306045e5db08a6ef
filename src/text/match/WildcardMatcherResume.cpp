#include "text/match/WildcardChars.h"
#include "text/match/WildcardItems.h"
#include "text/match/WildcardMatcher.h"

#include <string_view>

namespace utility
{

namespace
{

/// Reads no unit behind the text's terminator, which no name holds.
bool BeginsWith(const char16_t* text, std::u16string_view name)
{
    for (std::size_t place = 0; place < name.size(); ++place)
    {
        if (text[place] != name[place])
            return false;
    }
    return true;
}

} // namespace

/// Goes on with the frame on top, whose call is answered. Texts are put in front while calls
/// return, on failed ways too.
bool CWildcardMatcher::Resume()
{
    CMatchFrame& frame = m_Frames.GetTop();
    if (m_Residue)
    {
        frame.m_Front = m_Residue->Join(m_Answer.m_Front, frame.m_Front);
        frame.m_Back = m_Residue->Join(frame.m_Back, m_Answer.m_Back);
    }
    switch (frame.m_Wait)
    {
    case EWait::BehindUnit:
        TakeIntoResidue(frame);
        return m_Answer.m_Matches ? Finish(frame, true)
                                  : FailFrame(frame, m_Places[frame.m_Call.GetPattern()].m_Next);
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

bool CWildcardMatcher::ResumeStar(CMatchFrame& frame)
{
    const CMatchCall& star = frame.m_Call;
    const std::uint32_t rest = GetRest(star);
    if (!m_Answer.m_Matches && frame.m_Wait == EWait::StarTakes)
    {
        frame.m_Wait = EWait::StarStays;
        m_Call = {star.GetKind(), star.GetPattern(), star.GetText() + 1, false, star.IsNegated()};
        return false;
    }
    if (!m_Answer.m_Matches && frame.m_Wait == EWait::StarStays)
    {
        frame.m_Wait = EWait::StarEnds;
        m_Call = {ECall::Rule, rest, star.GetText(), false, star.IsNegated()};
        return false;
    }
    TakeIntoResidue(frame);
    return m_Answer.m_Matches ? Finish(frame, true) : FailFrame(frame, m_Places[rest].m_Next);
}

/// The shortest run first; a run that cannot go on is a failure for good.
bool CWildcardMatcher::ResumeRun(CMatchFrame& frame)
{
    CMatchCall call = frame.m_Call;
    if (m_Answer.m_Matches || !TakeRunUnit(call))
        return Finish(frame, m_Answer.m_Matches);
    return CallLast(frame, call);
}

bool CWildcardMatcher::ResumeGroup(CMatchFrame& frame)
{
    if (m_Answer.m_Matches)
        return Finish(frame, true);
    if (frame.m_Wait == EWait::Later)
        return FailFrame(frame, m_Places[m_Places[frame.m_Sought].m_AfterAlternatives].m_Next);

    const CMatchCall& group = frame.m_Call;
    const CWildcardPlace& first = m_Places[group.GetPattern() + 2];
    if (first.m_Next == 0)
        return FailFrame(frame, m_Places[first.m_AfterAlternatives].m_Next);

    const CMatchCall later(ECall::Alternatives, first.m_Next, group.GetText(), false,
                           group.IsNegated());
    if (!group.TriesOr())
        return CallLast(frame, later);
    frame.m_Wait = EWait::Later;
    frame.m_Sought = first.m_Next;
    m_Call = later;
    return false;
}

bool CWildcardMatcher::ResumeAlternative(CMatchFrame& frame)
{
    const CMatchCall& call = frame.m_Call;
    const std::uint32_t next = m_Places[call.GetPattern()].m_Next;
    if (m_Answer.m_Matches || next == 0)
        return Finish(frame, m_Answer.m_Matches);
    return CallLast(frame, {ECall::Alternatives, next, call.GetText(), false, call.IsNegated()});
}

/// For %^X%^Y: not X with Y directly behind it, and Y from some later place on.
bool CWildcardMatcher::ResumeNegation(CMatchFrame& frame)
{
    const CMatchCall& call = frame.m_Call;
    const bool isInverted = !call.IsNegated(); // the flag behind the %^ is the other one
    if (m_Answer.m_Matches == isInverted)
        return Finish(frame, false);

    // The scan begins on the ^, which is a plain unit by itself.
    const std::uint32_t end = m_Places[call.GetPattern() + 1].m_NegationEnd;
    const CWildcardPlace& stop = m_Places[end];
    if (stop.m_Kind == EWildcard::End ||
        (stop.m_Kind == EWildcard::Or && m_Places[end + 1].m_Unit != GetWildNotChar()))
        return Finish(frame, true);

    return CallLast(frame, {ECall::Star, end + 2, call.GetText(), false, call.IsNegated()});
}

/// Calls for the next unit name that stands in the text; the first whose rest matches decides.
bool CWildcardMatcher::TryUnitNames(CMatchFrame& frame)
{
    const CMatchCall& call = frame.m_Call;
    while (frame.m_UnitNames < WILD_UNIT_NAMES)
    {
        const std::u16string_view name = GetWildUnitName(frame.m_UnitNames++);
        if (!BeginsWith(m_Text + call.GetText(), name))
            continue;
        frame.m_HasCalled = true;
        const auto length = static_cast<std::uint32_t>(name.size());
        m_Call = {ECall::Rule, call.GetPattern() + 2, call.GetText() + length, false,
                  call.IsNegated()};
        return false;
    }
    return frame.m_HasCalled ? Finish(frame, false)
                             : FailFrame(frame, m_Places[call.GetPattern()].m_Next);
}

/// Puts the text's unit in front, unless it equals the pattern's.
void CWildcardMatcher::TakeIntoResidue(CMatchFrame& frame)
{
    if (!m_Residue)
        return;
    const CMatchCall& call = frame.m_Call;
    const bool isStar = call.GetKind() == ECall::Star;
    const char16_t unit = m_Text[call.GetText()];
    const bool isEqual =
        isStar ? unit == GetWildAnyChar() : m_Places[call.GetPattern()].IsMetBy(unit);
    if (!isEqual)
        frame.m_Front = m_Residue->Join(m_Residue->Part(call.GetText(), 1), frame.m_Front);
}

/// The answer of this call will be the frame's own.
bool CWildcardMatcher::CallLast(CMatchFrame& frame, const CMatchCall& call)
{
    m_Call = call;
    if (frame.m_Cell == NO_CELL && !m_Residue)
        m_Frames.Pop(); // nothing to come back for
    else
        frame.m_Wait = EWait::Last;
    return false;
}

/// The frame's call fails, unless it may try the alternative at `next`; 0 if there is none.
bool CWildcardMatcher::FailFrame(CMatchFrame& frame, std::uint32_t next)
{
    const CMatchCall& call = frame.m_Call;
    if (!call.TriesOr() || next == 0)
        return Finish(frame, false);
    return CallLast(frame, {ECall::Rule, next, call.GetText(), true, call.IsNegated()});
}

/// Answers the frame's own call and takes it off the stack.
bool CWildcardMatcher::Finish(CMatchFrame& frame, bool matches)
{
    m_Answer = {matches, frame.m_Front, frame.m_Back};
    if (frame.m_Cell != NO_CELL)
        m_Memory->Store(frame.m_Cell, m_Answer);
    m_Frames.Pop();
    return true;
}

} // namespace utility
