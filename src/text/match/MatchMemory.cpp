#include "text/match/MatchMemory.h"

#include <utility>

namespace utility
{

namespace
{

constexpr std::uint8_t UNKNOWN = 0;
constexpr std::uint8_t REFUSED = 1;
constexpr std::uint8_t MATCHED = 2;

std::size_t Hash(std::uint64_t call, std::uint32_t text)
{
    std::uint64_t key = (call << 24 ^ text) * 0x9E3779B97F4A7C15u; // golden ratio: spreads runs
    return static_cast<std::size_t>(key ^ key >> 32);
}

} // namespace

CMatchCell CMatchMemory::FindCell(const CMatchCall& call)
{
    const std::uint32_t text = call.GetText() / BLOCK;
    std::uint32_t block = m_Slots[FindSlot(call.GetKey(), text)].m_Block;
    if (block == 0)
        block = AddBlock(call.GetKey(), text);
    return CMatchCell{block - 1} * BLOCK + call.GetText() % BLOCK;
}

bool CMatchMemory::Recall(CMatchCell cell, CMatchAnswer& answer) const
{
    const std::uint8_t verdict = m_Blocks[cell / BLOCK][cell % BLOCK];
    if (verdict == UNKNOWN)
        return false;

    answer = {verdict == MATCHED};
    if (m_KeepsResidue)
    {
        const CPieces& pieces = m_Pieces[cell / BLOCK][cell % BLOCK];
        answer.m_Front = pieces.m_Front;
        answer.m_Back = pieces.m_Back;
    }
    return true;
}

void CMatchMemory::Store(CMatchCell cell, const CMatchAnswer& answer)
{
    m_Blocks[cell / BLOCK][cell % BLOCK] = answer.m_Matches ? MATCHED : REFUSED;
    if (m_KeepsResidue)
        m_Pieces[cell / BLOCK][cell % BLOCK] = {answer.m_Front, answer.m_Back};
}

/// The slot of the block, or the free one in which it would stand.
std::size_t CMatchMemory::FindSlot(std::uint64_t call, std::uint32_t text) const
{
    const std::size_t mask = m_Slots.size() - 1;
    std::size_t place = Hash(call, text) & mask;
    while (m_Slots[place].m_Block != 0 &&
           (m_Slots[place].m_Call != call || m_Slots[place].m_Text != text))
        place = (place + 1) & mask;
    return place;
}

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
    for (const CSlot& slot : old)
    {
        if (slot.m_Block != 0)
            m_Slots[FindSlot(slot.m_Call, slot.m_Text)] = slot;
    }
}

} // namespace utility
