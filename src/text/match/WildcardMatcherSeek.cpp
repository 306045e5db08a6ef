#include "text/match/WildcardMatcher.h"

namespace utility
{

/// Without a residue the order of the ways is free: a star matches if what stands behind it does so
/// somewhere from here to the text's end.
bool CWildcardMatcher::EvaluateSeekingStar(std::uint32_t rest)
{
    const std::uint32_t text = m_Call.GetText();
    if (!IsRemembering())
    {
        const std::uint32_t start = FindStart(rest, text);
        if (start == BEHIND_TEXT)
            return Fail(m_Places[rest]); // as most names of a list do
        return SeekFrom(m_Frames.Push(m_Call, EWait::StarSeeks, NO_CELL), start);
    }
    const CStarBounds& bounds = GetStarBounds(m_Call);
    if (text < bounds.m_MatchedBefore)
        return Answer(true);
    if (text >= bounds.m_RefusedFrom)
        return Fail(m_Places[rest]);
    if (!m_Call.TriesOr())
        m_Frames.Push(m_Call, EWait::StarSeeks, NO_CELL); // the bounds remember for it
    else if (Begin(EWait::StarSeeks))
        return true;
    CMatchFrame& frame = m_Frames.GetTop();
    frame.m_Sought = text;
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

/// Asks for what stands behind the star at the next place where it may match.
bool CWildcardMatcher::Seek(CMatchFrame& frame)
{
    const std::uint32_t sought = frame.m_Sought;
    return SeekFrom(frame,
                    sought == BEHIND_TEXT ? sought : FindStart(GetRest(frame.m_Call), sought));
}

/// The same at a place that is found; the text's end is one.
bool CWildcardMatcher::SeekFrom(CMatchFrame& frame, std::uint32_t start)
{
    const std::uint32_t rest = GetRest(frame.m_Call);
    if (start == BEHIND_TEXT)
    {
        if (m_Memory)
            GetStarBounds(frame.m_Call).m_RefusedFrom = frame.m_Call.GetText();
        return FailFrame(frame, m_Places[rest].m_Next);
    }
    frame.m_Sought = m_Text[start] == 0 ? BEHIND_TEXT : start + 1;
    m_Call = {ECall::Rule, rest, start, false, frame.m_Call.IsNegated()};
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
    const CWildcardPlace place = m_Places[pattern]; // of its own: the walk reads nothing else
    for (const char16_t* unit = m_Text + text; *unit != 0; ++unit)
    {
        if (!place.IsMetBy(*unit))
            continue;
        const auto found = static_cast<std::uint32_t>(unit - m_Text);
        if (!IsRefused(pattern + 1, found + 1) && !IsRangeRefused(pattern + 1, found + 1))
            return found;
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
    const CWrittenNumber found = range.Find(m_Text, m_Numbers, text);
    return found.m_End == text || IsRefused(range.GetEnd(), found.m_End) ||
           !range.Fits(m_Numbers, found);
}

CWildcardMatcher::CStarBounds& CWildcardMatcher::GetStarBounds(const CMatchCall& star)
{
    return m_StarBounds[2 * std::size_t{GetRest(star)} + (star.IsNegated() ? 1 : 0)];
}

} // namespace utility
