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
    explicit CMatchMemory(bool keepsResidue) : m_KeepsResidue(keepsResidue), m_Slots(64) {}

    /// The place of a call's answer, for good; made if need be.
    CMatchCell FindCell(const CMatchCall& call);

    /// False, and `answer` is left alone, if none is known.
    bool Recall(CMatchCell cell, CMatchAnswer& answer) const;
    void Store(CMatchCell cell, const CMatchAnswer& answer);

private:
    static constexpr std::uint32_t BLOCK = 32;

    struct CPieces
    {
        CResiduePiece m_Front;
        CResiduePiece m_Back;
    };
    using CVerdicts = std::array<std::uint8_t, BLOCK>;
    struct CSlot
    {
        std::uint64_t m_Call = 0;
        std::uint32_t m_Text = 0;  // in blocks
        std::uint32_t m_Block = 0; // from 1; 0 if the slot is free
    };

    std::size_t FindSlot(std::uint64_t call, std::uint32_t text) const;
    std::uint32_t AddBlock(std::uint64_t call, std::uint32_t text);
    void Grow();

    bool m_KeepsResidue;
    std::vector<CSlot> m_Slots; // hash table, a power of two
    std::vector<CVerdicts> m_Blocks;
    std::vector<std::array<CPieces, BLOCK>> m_Pieces; // beside the blocks, if there is a residue
};

} // namespace utility
