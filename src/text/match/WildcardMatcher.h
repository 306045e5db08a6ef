#pragma once

#include "platform/base/Export.h"
#include "text/match/MatchFrames.h"
#include "text/match/MatchMemory.h"
#include "text/match/MatchResidue.h"
#include "text/match/WildcardPattern.h"
#include "text/match/WildcardUnit.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace utility
{

/// Matches one text with one pattern by the full rules of the pattern language.
///
/// The rules are recursive: one rule answers a call at a place in the pattern and in the text by
/// further calls. Here calls wait in frames on a stack of the object's own, so that no text is too
/// long for the machine's; and once a match has taken a while, the answers of calls are remembered,
/// so that none is worked out twice. What a call answers hangs on the call alone.
///
/// Serves one match. Pattern, zero-terminated text and residue must outlive the object.
class CWildcardMatcher
{
public:
    /// Most matches of names end earlier, and remembering would cost more than it saves.
    static constexpr std::uint64_t STEPS_WITHOUT_MEMORY = 128;

    /// `residue` may be null, then none is kept.
    UTILITY_CORE_API
    CWildcardMatcher(const CWildcardPattern& pattern, const char16_t* text, CMatchResidue* residue,
                     std::uint64_t stepsWithoutMemory = STEPS_WITHOUT_MEMORY);

    UTILITY_CORE_API bool Match();

    /// What the match has put into the residue, a refused match too.
    UTILITY_CORE_API CResiduePiece GetResidue() const;

    /// Rules applied so far: the measure of the match's work.
    std::uint64_t GetSteps() const { return m_Steps; }

private:
    static constexpr std::uint32_t BEHIND_TEXT = UINT32_MAX;

    /// What is known of a star without residue: if what stands behind it matches somewhere, the
    /// star matches from everywhere in front of that.
    struct CStarBounds
    {
        std::uint32_t m_MatchedBefore = 0;
        std::uint32_t m_RefusedFrom = UINT32_MAX;
    };

    // Each of the following answers a call in full or in part: true means that the answer is known,
    // false that another call stands in m_Call.

    // WildcardMatcherRules.cpp: the call in m_Call; and Match, which turns to it at each step
    bool Evaluate();
    bool EvaluateRule();
    bool EvaluateAtEnd(const CWildcardPlace& place);
    bool EvaluateItem(const CWildcardPlace& place);
    bool EvaluateRange(const CWildcardPlace& place);
    bool EvaluateNegation();
    bool EvaluateStar(std::uint32_t rest);
    bool EvaluateRun();
    bool EvaluateAlternatives();
    bool Fail(const CWildcardPlace& place);

    // WildcardMatcherResume.cpp: the call of the frame on top, once what it called for is answered
    bool Resume();
    bool ResumeStar(CMatchFrame& frame);
    bool ResumeRun(CMatchFrame& frame);
    bool ResumeGroup(CMatchFrame& frame);
    bool ResumeAlternative(CMatchFrame& frame);
    bool ResumeNegation(CMatchFrame& frame);
    bool TryUnitNames(CMatchFrame& frame);
    bool CallLast(CMatchFrame& frame, const CMatchCall& call);
    bool FailFrame(CMatchFrame& frame, std::uint32_t next);
    bool Finish(CMatchFrame& frame, bool matches);
    void TakeIntoResidue(CMatchFrame& frame);

    // WildcardMatcherSeek.cpp: a star when there is no residue
    bool EvaluateSeekingStar(std::uint32_t rest);
    bool ResumeSeekingStar(CMatchFrame& frame);
    bool Seek(CMatchFrame& frame);
    bool SeekFrom(CMatchFrame& frame, std::uint32_t start);
    std::uint32_t FindStart(std::uint32_t pattern, std::uint32_t text);
    std::uint32_t FindPlainStart(std::uint32_t pattern, std::uint32_t text);
    bool IsRangeRefused(std::uint32_t pattern, std::uint32_t text);
    CStarBounds& GetStarBounds(const CMatchCall& star);

    /// Asks whether the pattern matches from there on; the negation flag stays.
    bool Call(std::uint32_t pattern, std::uint32_t text, bool tryOr = false)
    {
        m_Call = {ECall::Rule, pattern, text, tryOr, m_Call.IsNegated()};
        return false;
    }
    bool Answer(bool matches)
    {
        m_Answer = {matches};
        return true;
    }

    /// Whether a call there, which tries no alternative, fails at once.
    bool IsRefused(std::uint32_t pattern, std::uint32_t text) const
    {
        const CWildcardPlace& place = m_Places[pattern];
        const char16_t unit = m_Text[text];
        return (place.m_Classes & GetUnitClass(unit)) == 0 && !place.IsMetBy(unit);
    }

    /// Moves a run to its next unit; false if it has none.
    bool TakeRunUnit(CMatchCall& call) const
    {
        const CWildcardPlace& place = m_Places[call.GetPattern()];
        const std::uint32_t text = call.GetText() + 1;
        const BYTE unit = GetUnitClass(m_Text[text]);
        ECall kind = call.GetKind();
        if (place.m_Kind == EWildcard::RealNumber && unit == UNIT_POINT && kind == ECall::Run)
            kind = ECall::PointedRun;
        else if ((place.m_Classes & unit) == 0)
            return false;
        call = {kind, call.GetPattern(), text, false, call.IsNegated()};
        return true;
    }

    /// Where the pattern goes on behind a star: one of its own, or one put in by a negation.
    static std::uint32_t GetRest(const CMatchCall& star)
    {
        return star.GetPattern() + (star.GetKind() == ECall::Rule ? 1 : 0);
    }

    /// Puts the present call on the stack, to go on with it later; true if its answer is known
    /// already.
    bool Begin(EWait wait)
    {
        CMatchCell cell = NO_CELL;
        if (IsRemembering())
        {
            cell = m_Memory->FindCell(m_Call);
            if (m_Memory->Recall(cell, m_Answer))
                return true;
        }
        m_Frames.Push(m_Call, wait, cell);
        return false;
    }
    bool IsRemembering() { return m_Steps >= m_StepsWithoutMemory && (m_Memory || StartMemory()); }
    bool StartMemory(); // always true

    const CWildcardPattern& m_Pattern;
    const CWildcardPlace* m_Places;
    const char16_t* m_Text;
    CMatchResidue* m_Residue;
    std::uint64_t m_StepsWithoutMemory;

    CMatchCall m_Call; // to be answered next
    CMatchAnswer m_Answer;
    std::uint64_t m_Steps = 0;
    CMatchFrames m_Frames;
    CNumberFinder m_Numbers;
    std::optional<CMatchMemory> m_Memory;
    std::vector<CStarBounds> m_StarBounds; // by rest and negation flag, beside the memory
};

} // namespace utility
