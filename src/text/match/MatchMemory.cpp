#include "text/match/MatchMemory.h"

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

CMatchCell CMatchMemory::FindCell(std::uint64_t call, std::uint32_t text)
{
    std::uint32_t number = m_Slots[FindSlot(call, text / BLOCK)];
    if (number == 0)
        number = AddBlock(call, text / BLOCK);
    return CMatchCell{number - 1} * BLOCK + text % BLOCK;
}

bool CMatchMemory::Recall(CMatchCell cell, CMatchAnswer& answer) const
{
    const std::uint8_t verdict = m_Blocks[cell / BLOCK].m_Verdicts[cell % BLOCK];
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
    m_Blocks[cell / BLOCK].m_Verdicts[cell % BLOCK] = answer.m_Matches ? MATCHED : REFUSED;
    if (m_KeepsResidue)
        m_Pieces[cell / BLOCK][cell % BLOCK] = {answer.m_Front, answer.m_Back};
}

/// The slot of the block, or the free one in which it would stand.
std::size_t CMatchMemory::FindSlot(std::uint64_t call, std::uint32_t text) const
{
    const std::size_t mask = m_Slots.size() - 1;
    for (std::size_t slot = Hash(call, text) & mask;; slot = (slot + 1) & mask)
    {
        const std::uint32_t number = m_Slots[slot];
        if (number == 0)
            return slot;
        const CBlock& block = m_Blocks[number - 1];
        if (block.m_Call == call && block.m_Text == text)
            return slot;
    }
}

std::uint32_t CMatchMemory::AddBlock(std::uint64_t call, std::uint32_t text)
{
    if (m_Blocks.size() * 2 >= m_Slots.size())
        Grow();
    m_Blocks.push_back({call, text, {}});
    if (m_KeepsResidue)
        m_Pieces.emplace_back();
    const auto number = static_cast<std::uint32_t>(m_Blocks.size());
    m_Slots[FindSlot(call, text)] = number;
    return number;
}

void CMatchMemory::Grow()
{
    m_Slots.assign(m_Slots.size() * 2, 0);
    for (std::size_t index = 0; index < m_Blocks.size(); ++index)
    {
        const CBlock& block = m_Blocks[index];
        m_Slots[FindSlot(block.m_Call, block.m_Text)] = static_cast<std::uint32_t>(index + 1);
    }
}

} // namespace utility
