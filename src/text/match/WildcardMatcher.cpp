#include "text/match/WildcardMatcher.h"

#include "platform/base/UnitSearch.h"

namespace utility
{

CWildcardMatcher::CWildcardMatcher(const CWildcardPattern& pattern, const char16_t* text,
                                   CMatchResidue* residue, std::uint64_t stepsWithoutMemory)
    : m_Pattern(pattern),
      m_Places(pattern.GetPlaces()),
      m_Text(text),
      m_Residue(residue),
      m_StepsWithoutMemory(stepsWithoutMemory),
      m_Call(ECall::Rule, 0, 0, pattern.HasAlternatives(), false),
      m_Numbers(text)
{
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

CResiduePiece CWildcardMatcher::GetResidue() const
{
    return m_Residue ? m_Residue->Join(m_Answer.m_Front, m_Answer.m_Back) : 0;
}

/// Whether the call's answer is known already; else `cell` is where it will be kept.
bool CWildcardMatcher::Recall(CMatchCell& cell)
{
    if (!IsRemembering())
        return false;
    cell = m_Memory->FindCell(m_Call);
    return m_Memory->Recall(cell, m_Answer);
}

bool CWildcardMatcher::IsRemembering()
{
    if (m_Steps < m_StepsWithoutMemory)
        return false;
    if (!m_Memory)
    {
        m_Memory.emplace(m_Residue != nullptr);
        m_StarBounds.resize(m_Residue ? 0 : 2 * (m_Pattern.GetLength() + std::size_t{1}));
    }
    return true;
}

CWildcardMatcher::CStarBounds& CWildcardMatcher::GetStarBounds(const CMatchCall& star)
{
    return m_StarBounds[2 * std::size_t{GetRest(star)} + (star.IsNegated() ? 1 : 0)];
}

} // namespace utility
