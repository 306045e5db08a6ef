#include "text/match/WildcardScan.h"

#include "text/match/WildcardChars.h"

namespace utility
{

void CWildcardScan::Prepare()
{
    if (!m_Rows.empty())
        return;

    // From the end backwards: a scan that leaves its first place goes on with a known row.
    m_Rows.resize(m_Pattern.size() + 1);
    const std::uint32_t end = GetEnd();
    m_Rows[end] = {end, end, end, end, end};
    for (m_Known = end; m_Known > 0;)
    {
        const std::uint32_t position = m_Known - 1;
        CRow row;
        row.m_Closing = IsItem(position, u'}') ? position : m_Rows[m_Known].m_Closing;
        row.m_NextAlternative = NextAlternative(position);
        row.m_AfterGroup = AfterGroup(position);
        row.m_AfterAlternatives = AfterAlternatives(position);
        row.m_NegationEnd = NegationEnd(position);
        m_Rows[position] = row;
        m_Known = position;
    }
}

/// The place behind one unit, or behind a whole group if one begins here.
std::uint32_t CWildcardScan::StepOver(std::uint32_t position) const
{
    if (!IsItem(position, GetWildOpenChar()))
        return position + 1;

    std::uint32_t closing = std::min(position + 2, GetEnd());
    if (closing >= m_Known)
        return BehindClosing(m_Rows[closing].m_Closing);
    while (closing < GetEnd() && !IsItem(closing, GetWildCloseChar()))
        ++closing;
    return BehindClosing(closing);
}

std::uint32_t CWildcardScan::BehindClosing(std::uint32_t position) const
{
    return std::min(position + 2, GetEnd());
}

std::uint32_t CWildcardScan::NextAlternative(std::uint32_t position) const
{
    while (position < GetEnd())
    {
        if (position >= m_Known)
            return m_Rows[position].m_NextAlternative;
        const char16_t unit = m_Pattern[position];
        if (unit == GetWildOrChar())
            return position + 1;
        if (IsItem(position, GetWildCloseChar()))
            return position;
        position = unit == GetWildFormatChar() ? StepOver(position) : position + 1;
    }
    return GetEnd();
}

std::uint32_t CWildcardScan::AfterGroup(std::uint32_t position) const
{
    while (position < GetEnd())
    {
        if (position >= m_Known)
            return m_Rows[position].m_AfterGroup;
        position = NextAlternative(position);
        if (!IsAlternative(position))
            return BehindClosing(position);
        // On purpose a unit further: a group directly behind a | is entered, and its %} ends the
        // walk.
        ++position;
    }
    return GetEnd();
}

std::uint32_t CWildcardScan::AfterAlternatives(std::uint32_t position) const
{
    while (position < GetEnd())
    {
        if (position >= m_Known)
            return m_Rows[position].m_AfterAlternatives;
        position = NextAlternative(position);
        if (!IsAlternative(position))
            return BehindClosing(position);
    }
    return GetEnd();
}

std::uint32_t CWildcardScan::NegationEnd(std::uint32_t position) const
{
    while (position < GetEnd())
    {
        if (position >= m_Known)
            return m_Rows[position].m_NegationEnd;
        if (m_Pattern[position] == GetWildOrChar() || IsItem(position, GetWildCloseChar()) ||
            IsItem(position, GetWildNotChar()))
            return position;
        position = StepOver(position);
    }
    return GetEnd();
}

} // namespace utility
