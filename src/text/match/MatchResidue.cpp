#include "text/match/MatchResidue.h"

#include "platform/base/String.h"
#include "platform/base/UnitSearch.h"

namespace utility
{

CResiduePiece CMatchResidue::Part(std::uint32_t first, std::uint32_t count)
{
    if (count == 0)
        return 0;
    m_Nodes.push_back({first, 0, std::min(count, LIMIT)});
    return static_cast<CResiduePiece>(m_Nodes.size());
}

CResiduePiece CMatchResidue::RestFrom(std::uint32_t first)
{
    if (m_TextLength == UINT32_MAX)
        m_TextLength = static_cast<std::uint32_t>(units::Length(m_Text));
    return Part(first, m_TextLength - first);
}

CResiduePiece CMatchResidue::Join(CResiduePiece left, CResiduePiece right)
{
    if (left == 0 || right == 0)
        return left | right;
    if (GetLength(left) == LIMIT)
        return left; // whatever stands behind it is beyond the end
    m_Nodes.push_back({left, right, std::min(GetLength(left) + GetLength(right), LIMIT)});
    return static_cast<CResiduePiece>(m_Nodes.size());
}

void CMatchResidue::Write(CResiduePiece piece, CString& residue) const
{
    std::u16string text;
    std::vector<CResiduePiece> open;
    if (piece != 0)
        open.push_back(piece);
    while (!open.empty() && text.size() < LIMIT)
    {
        const CNode& node = m_Nodes[open.back() - 1];
        open.pop_back();
        if (node.m_Right == 0)
        {
            text.append(m_Text + node.m_Left, node.m_Length);
            continue;
        }
        open.push_back(node.m_Right);
        open.push_back(node.m_Left);
    }
    residue = std::u16string_view(text).substr(0, LIMIT);
}

} // namespace utility
