#pragma once

#include "text/match/MatchCall.h"
#include "text/match/MatchMemory.h"
#include "text/match/MatchResidue.h"

#include <cstddef>
#include <vector>

namespace utility
{

/// What a frame has called for, and so what it does with the answer.
enum class EWait : std::uint8_t
{
    BehindUnit,  // the units at both places are taken
    StarTakes,   // the star takes a unit and ends
    StarStays,   // the star takes a unit and goes on
    StarEnds,    // the star takes nothing more
    StarSeeks,   // the star ends in front of m_Sought
    BehindRun,   // a run ends with this unit
    First,       // first alternative of a group
    Later,       // its later ones, the second of them at m_Sought
    Alternative, // one of the later ones
    Negation,    // what stands behind the %^
    BehindUnitName,
    Last, // the answer is the frame's own
};

/// A call that waits for the answer of another one.
struct CMatchFrame
{
    CMatchCall m_Call;
    CMatchCell m_Cell; // where its answer is remembered
    std::uint32_t m_Sought;
    CResiduePiece m_Front;
    CResiduePiece m_Back;
    EWait m_Wait;
    std::uint8_t m_UnitNames; // tried so far
    bool m_HasCalled;         // for one of them
};

/// The calls that wait, the latest on top. Few matches need more than stands in the object itself.
class CMatchFrames
{
public:
    CMatchFrames() : m_Frames(m_First) {} // the frames themselves are left as they are
    CMatchFrames(const CMatchFrames&) = delete;
    CMatchFrames& operator=(const CMatchFrames&) = delete;

    bool IsEmpty() const { return m_Count == 0; }
    CMatchFrame& GetTop() { return m_Frames[m_Count - 1]; }

    /// Moves the other frames: references to them end.
    CMatchFrame& Push(const CMatchCall& call, EWait wait, CMatchCell cell)
    {
        if (m_Count == m_Capacity)
            Grow();
        CMatchFrame& frame = m_Frames[m_Count++];
        frame.m_Call = call; // one by one: a whole frame would be made elsewhere and copied
        frame.m_Cell = cell;
        frame.m_Sought = 0;
        frame.m_Front = 0;
        frame.m_Back = 0;
        frame.m_Wait = wait;
        frame.m_UnitNames = 0;
        frame.m_HasCalled = false;
        return frame;
    }
    void Pop() { --m_Count; }

private:
    static constexpr std::size_t FIRST_FRAMES = 16;

    void Grow();

    CMatchFrame* m_Frames; // the first ones, or all
    std::size_t m_Count = 0;
    std::size_t m_Capacity = FIRST_FRAMES;
    CMatchFrame m_First[FIRST_FRAMES];
    std::vector<CMatchFrame> m_All; // once they are too many
};

} // namespace utility
