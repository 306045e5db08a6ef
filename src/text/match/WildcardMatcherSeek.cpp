#include "text/match/WildcardMatcher.h"

namespace utility
{

/// Without a residue the order of the ways is free: a star matches if what stands behind it does so
/// somewhere from here to the text's end.
bool CWildcardMatcher::EvaluateSeekingStar(std::uint32_t rest)
{
    if (IsRemembering())
    {
        const CStarBounds& bounds = GetStarBounds(m_Call);
        if (m_Call.GetText() < bounds.m_MatchedBefore)
            return Answer(true);
        if (m_Call.GetText() >= bounds.m_RefusedFrom)
            return Fail(m_Places[rest]);
    }
    if (!m_Call.TriesOr())
        m_Frames.Push(m_Call, EWait::StarSeeks, NO_CELL); // the bounds remember for it
    else if (Begin(EWait::StarSeeks))
        return true;
    CMatchFrame& frame = m_Frames.GetTop();
    frame.m_Sought = m_Call.GetText();
    return Seek(frame);
}

bool CWildcardMatcher::ResumeSeekingStar(CMatchFrame& frame)
{
    if (!m_Answer.m_Matches)
        return Seek(frame);

    if (m_Memory)
        GetStarBounds(frame.m_Call).m_MatchedBefore = frame.m_Sought;
    return Finish(frame, true);
}

/// Asks for what stands behind the star at the next place where it may match; the text's end
/// is one.
bool CWildcardMatcher::Seek(CMatchFrame& frame)
{
    const std::uint32_t rest = GetRest(frame.m_Call);
    const std::uint32_t place =
        frame.m_Sought == BEHIND_TEXT ? BEHIND_TEXT : FindStart(rest, frame.m_Sought);
    if (place == BEHIND_TEXT)
    {
        if (m_Memory)
            GetStarBounds(frame.m_Call).m_RefusedFrom = frame.m_Call.GetText();
        return FailFrame(frame, m_Places[rest].m_Next);
    }
    frame.m_Sought = m_Text[place] == 0 ? BEHIND_TEXT : place + 1;
    m_Call = {ECall::Rule, rest, place, false, frame.m_Call.IsNegated()};
    return false;
}

/// The first place from there on where the pattern is not refused at once, the text's end included.
std::uint32_t CWildcardMatcher::FindStart(std::uint32_t pattern, std::uint32_t text)
{
    if (m_Places[pattern].m_Kind == EWildcard::Plain)
        return FindPlainStart(pattern, text);
    for (; IsRefused(pattern, text); ++text)
    {
        if (m_Text[text] == 0)
            return BEHIND_TEXT;
    }
    return text;
}

/// The same for a plain unit, which says something of what stands behind it too.
std::uint32_t CWildcardMatcher::FindPlainStart(std::uint32_t pattern, std::uint32_t text)
{
    const CWildcardPlace& place = m_Places[pattern];
    for (; m_Text[text] != 0; ++text)
    {
        if (place.IsMetBy(m_Text[text]) && !IsRefused(pattern + 1, text + 1) &&
            !IsRangeRefused(pattern + 1, text + 1))
            return text;
    }
    return BEHIND_TEXT;
}

/// Whether a range stands there that nothing fits, or nothing with the unit behind it.
bool CWildcardMatcher::IsRangeRefused(std::uint32_t pattern, std::uint32_t text)
{
    const CWildcardPlace& place = m_Places[pattern];
    if (place.m_Kind != EWildcard::Range || place.IsMetBy(m_Text[text]))
        return false;
    const CWildcardRange& range = m_Pattern.GetRange(place);
    const std::uint32_t behind = range.Take(m_Text, m_Numbers, text);
    return behind == text || IsRefused(range.GetEnd(), behind);
}

CWildcardMatcher::CStarBounds& CWildcardMatcher::GetStarBounds(const CMatchCall& star)
{
    return m_StarBounds[2 * std::size_t{GetRest(star)} + (star.IsNegated() ? 1 : 0)];
}

} // namespace utility
