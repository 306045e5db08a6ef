#pragma once

#include "text/match/MatchCall.h"
#include "text/match/MatchResidue.h"

#include <array>
#include <cstdint>
#include <vector>

namespace utility
{

/// The outcome of one call of the matcher: its verdict, and the texts it put in front of the
/// residue and behind it.
struct CMatchAnswer
{
    bool m_Matches = false;
    CResiduePiece m_Front = 0;
    CResiduePiece m_Back = 0;
};

/// Where an answer is kept.
using CMatchCell = std::uint64_t;
constexpr CMatchCell NO_CELL = UINT64_MAX;

/// The answers that a match has found so far, by call.
///
/// Takes memory for what is asked only. Neighbouring text positions stand together, since a star
/// walks over them.
class CMatchMemory
{
public:
    explicit CMatchMemory(bool keepsResidue)
        : m_KeepsResidue(keepsResidue),
          m_Slots(std::size_t{1} << FIRST_SLOT_BITS)
    {
    }

    /// The place of a call's answer, for good; made if need be.
    CMatchCell FindCell(const CMatchCall& call)
    {
        const std::uint32_t text = call.GetText() / BLOCK;
        std::uint32_t block = m_Slots[FindSlot(call.GetKey(), text)].m_Block;
        if (block == 0)
            block = AddBlock(call.GetKey(), text);
        return CMatchCell{block - 1} * BLOCK + call.GetText() % BLOCK;
    }

    /// False, and `answer` is left alone, if none is known.
    bool Recall(CMatchCell cell, CMatchAnswer& answer) const
    {
        const CVerdicts& verdicts = m_Blocks[cell / BLOCK];
        const std::uint32_t bit = BitOf(cell);
        if ((verdicts.m_Known & bit) == 0)
            return false;
        answer = {(verdicts.m_Matched & bit) != 0};
        if (m_KeepsResidue)
            RecallPieces(cell, answer);
        return true;
    }
    void Store(CMatchCell cell, const CMatchAnswer& answer)
    {
        CVerdicts& verdicts = m_Blocks[cell / BLOCK];
        verdicts.m_Known |= BitOf(cell);
        if (answer.m_Matches)
            verdicts.m_Matched |= BitOf(cell);
        if (m_KeepsResidue)
            StorePieces(cell, answer);
    }

private:
    static constexpr std::uint32_t BLOCK = 32;
    static constexpr int FIRST_SLOT_BITS = 6;

    /// A bit for each text position of a block.
    struct CVerdicts
    {
        std::uint32_t m_Known = 0;
        std::uint32_t m_Matched = 0;
    };
    struct CPieces
    {
        CResiduePiece m_Front;
        CResiduePiece m_Back;
    };
    struct CSlot
    {
        std::uint64_t m_Call = 0;
        std::uint32_t m_Text = 0;  // in blocks
        std::uint32_t m_Block = 0; // from 1; 0 if the slot is free
    };

    static std::uint32_t BitOf(CMatchCell cell) { return std::uint32_t{1} << cell % BLOCK; }

    /// The slot of the block, or the free one in which it would stand.
    std::size_t FindSlot(std::uint64_t call, std::uint32_t text) const
    {
        // By the golden ratio, which spreads runs of texts over the table.
        const std::uint64_t hash = (call << 24 ^ text) * 0x9E3779B97F4A7C15u;
        const CSlot* slot = &m_Slots[hash >> m_HashShift];
        while (slot->m_Block != 0 && (slot->m_Call != call || slot->m_Text != text))
            slot = slot == &m_Slots.back() ? m_Slots.data() : slot + 1;
        return static_cast<std::size_t>(slot - m_Slots.data());
    }
    std::uint32_t AddBlock(std::uint64_t call, std::uint32_t text);
    void Grow();
    void RecallPieces(CMatchCell cell, CMatchAnswer& answer) const;
    void StorePieces(CMatchCell cell, const CMatchAnswer& answer);

    bool m_KeepsResidue;
    std::vector<CSlot> m_Slots; // hash table, a power of two
    int m_HashShift = 64 - FIRST_SLOT_BITS;
    std::vector<CVerdicts> m_Blocks;
    std::vector<std::array<CPieces, BLOCK>> m_Pieces; // beside the blocks, if there is a residue
};

} // namespace utility
