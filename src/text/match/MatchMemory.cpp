#include "text/match/MatchMemory.h"

#include <utility>

namespace utility
{

std::uint32_t CMatchMemory::AddBlock(std::uint64_t call, std::uint32_t text)
{
    if (m_Blocks.size() * 2 >= m_Slots.size())
        Grow();
    m_Blocks.emplace_back();
    if (m_KeepsResidue)
        m_Pieces.emplace_back();
    const auto block = static_cast<std::uint32_t>(m_Blocks.size());
    m_Slots[FindSlot(call, text)] = {call, text, block};
    return block;
}

void CMatchMemory::Grow()
{
    const std::vector<CSlot> old = std::exchange(m_Slots, std::vector<CSlot>(m_Slots.size() * 2));
    --m_HashShift;
    for (const CSlot& slot : old)
    {
        if (slot.m_Block != 0)
            m_Slots[FindSlot(slot.m_Call, slot.m_Text)] = slot;
    }
}

void CMatchMemory::RecallPieces(CMatchCell cell, CMatchAnswer& answer) const
{
    const CPieces& pieces = m_Pieces[cell / BLOCK][cell % BLOCK];
    answer.m_Front = pieces.m_Front;
    answer.m_Back = pieces.m_Back;
}

void CMatchMemory::StorePieces(CMatchCell cell, const CMatchAnswer& answer)
{
    m_Pieces[cell / BLOCK][cell % BLOCK] = {answer.m_Front, answer.m_Back};
}

} // namespace utility
