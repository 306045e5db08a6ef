#pragma once

#include "platform/base/CaseFold.h"
#include "platform/base/Export.h"
#include "text/match/MatchMemory.h"
#include "text/match/MatchResidue.h"
#include "text/match/WildcardRange.h"
#include "text/match/WildcardScan.h"

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <optional>
#include <string_view>
#include <vector>

namespace utility
{

/// Matches one text with one pattern by the full rules of the pattern language.
///
/// The rules are recursive: one rule answers a call at a place in the pattern and in the text by
/// further calls. Here calls wait in frames on a stack of the object's own, so that no text is too
/// long for the machine's; and once a match has taken a while, the answers of calls are remembered,
/// so that none is worked out twice. What a call answers hangs on its state alone.
///
/// Serves one match. Pattern, text and residue must outlive the object.
class CWildcardMatcher
{
public:
    /// Most matches of names end earlier, and remembering would cost more than it saves.
    static constexpr std::uint64_t STEPS_WITHOUT_MEMORY = 128;

    /// `residue` may be null, then none is kept.
    UTILITY_CORE_API
    CWildcardMatcher(std::u16string_view pattern, std::u16string_view text, bool caseSensitive,
                     CMatchResidue* residue,
                     std::uint64_t stepsWithoutMemory = STEPS_WITHOUT_MEMORY);

    UTILITY_CORE_API bool Match();

    /// What the match has put into the residue, a refused match too.
    UTILITY_CORE_API CResiduePiece GetResidue() const;

    /// Rules applied so far: the measure of the match's work.
    std::uint64_t GetSteps() const { return m_Steps; }

private:
    /// What a call asks.
    enum class ECall : std::uint8_t
    {
        Rule,         // does the pattern match here
        Star,         // does a star match here, with the pattern behind it
        Run,          // does the run of an item match that holds this unit
        SeparatedRun, // the same, and a separator has been met
        Alternatives, // does this alternative of a group match, or a later one
    };

    struct CState
    {
        std::uint32_t m_Pattern;
        std::uint32_t m_Text;
        ECall m_Call;
        bool m_TryOr;   // try the next alternative on failure
        bool m_Negated; // the negation flag
    };

    /// What a frame has called for, and so what it does with the answer.
    enum class EWait : std::uint8_t
    {
        BehindUnit,  // the units at both places are taken
        StarTakes,   // the star takes a unit and ends
        StarStays,   // the star takes a unit and goes on
        StarEnds,    // the star takes nothing more
        StarSeeks,   // the star ends at m_Sought
        BehindRun,   // a run ends with this unit
        First,       // first alternative of a group
        Later,       // its later ones
        Alternative, // one of the later ones
        Negation,    // what stands behind the %^
        BehindUnitName,
        Last, // the answer is the frame's own
    };

    struct CFrame
    {
        CState m_State{};
        EWait m_Wait = EWait::Last;
        std::uint8_t m_UnitNames = 0; // tried so far
        bool m_HasCalled = false;     // for one of them
        std::uint32_t m_Sought = 0; // next place of a star that seeks; a group's second alternative
        CResiduePiece m_Front = 0;
        CResiduePiece m_Back = 0;
        CMatchCell m_Cell = NO_CELL; // where its answer is remembered
    };

    /// What is known of a star without residue: if what stands behind it matches somewhere, the star
    /// matches from everywhere in front of that.
    struct CStarBounds
    {
        std::uint32_t m_MatchedBefore = 0;
        std::uint32_t m_RefusedFrom = UINT32_MAX;
    };

    // Calls: true means that the answer is known, false that another call stands in m_State.
    bool Evaluate();
    bool EvaluateRule();
    bool EvaluateAtEnd();
    bool EvaluateStar(std::uint32_t rest);
    bool EvaluateSeekingStar(std::uint32_t rest);
    bool EvaluateItem();
    bool EvaluateRange();
    bool EvaluateNegation();
    bool EvaluateRun();
    bool EvaluateAlternatives();

    // Going on with the frame on top, once its call is answered; results as above.
    bool Resume();
    bool ResumeStar(CFrame& frame);
    bool ResumeSeekingStar(CFrame& frame);
    bool Seek(CFrame& frame);
    bool ResumeRun(CFrame& frame);
    bool ResumeGroup(CFrame& frame);
    bool ResumeAlternative(CFrame& frame);
    bool ResumeNegation(CFrame& frame);
    bool TryUnitNames(CFrame& frame);
    void TakeIntoResidue(CFrame& frame);

    bool Begin(EWait wait);
    void BeginRemembering();
    void Push(EWait wait, CMatchCell cell);
    bool Call(std::uint32_t pattern, std::uint32_t text, bool tryOr = false);
    bool CallLast(CFrame& frame, const CState& state);
    bool Fail(std::uint32_t pattern);
    bool Fail(CFrame& frame, std::uint32_t pattern);
    bool Answer(bool matches);
    bool Finish(CFrame& frame, bool matches);

    char16_t PatternAt(std::uint32_t position) const
    {
        return position < m_Pattern.size() ? m_Pattern[position] : u'\0';
    }
    bool IsAtTextEnd() const { return m_State.m_Text == m_Text.size(); }
    bool AreEqual(char16_t pattern, char16_t text) const
    {
        return pattern == text || (!m_CaseSensitive && ToUpper(pattern) == ToUpper(text));
    }
    bool IsPlain(std::uint32_t pattern) const;
    std::uint32_t FindUnit(char16_t unit, std::uint32_t text) const;
    bool IsRefused(std::uint32_t pattern, std::uint32_t text) const;
    bool HasAlternative(std::uint32_t pattern) const
    {
        return m_Scan.IsAlternative(m_Scan.NextAlternative(pattern));
    }
    bool TakeRunUnit(CState& state) const;
    static std::uint32_t GetRest(const CState& star);
    CStarBounds& GetStarBounds(const CState& star);
    static std::uint64_t GetKey(const CState& state);

    std::u16string_view m_Pattern;
    std::u16string_view m_Text;
    bool m_CaseSensitive;
    CMatchResidue* m_Residue;
    std::uint64_t m_StepsWithoutMemory;
    CWildcardScan m_Scan;
    CWildcardRange m_Range;

    CState m_State; // the call to be answered next
    CMatchAnswer m_Answer;
    std::byte m_FirstFrames[1024]; // enough for most matches, without a heap
    std::pmr::monotonic_buffer_resource m_FrameMemory;
    std::pmr::vector<CFrame> m_Frames;
    std::optional<CMatchMemory> m_Memory;
    std::vector<CStarBounds> m_StarBounds; // by rest and negation flag, beside the memory
    std::uint64_t m_Steps = 0;
};

} // namespace utility
