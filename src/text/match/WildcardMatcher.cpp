#include "text/match/WildcardMatcher.h"

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

CResiduePiece CWildcardMatcher::GetResidue() const
{
    return m_Residue ? m_Residue->Join(m_Answer.m_Front, m_Answer.m_Back) : 0;
}

bool CWildcardMatcher::StartMemory()
{
    m_Memory.emplace(m_Residue != nullptr);
    m_StarBounds.resize(m_Residue ? 0 : 2 * (m_Pattern.GetLength() + std::size_t{1}));
    return true;
}

} // namespace utility
