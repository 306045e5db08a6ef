#pragma once

#include <cstdint>

namespace utility
{

/// What a call of the matcher asks.
enum class ECall : std::uint8_t
{
    Rule,         // does the pattern match here
    Star,         // does a star match here, with the pattern behind it
    Run,          // does the run of an item match that holds this unit
    PointedRun,   // the same, and a separator has been met
    Alternatives, // does this alternative of a group match, or a later one
};

/// A call of the matcher: all that its answer hangs on.
class CMatchCall
{
public:
    CMatchCall() = default; // without a value: stacks of calls are made in one piece
    CMatchCall(ECall kind, std::uint32_t pattern, std::uint32_t text, bool tryOr, bool negated)
        : m_Key(std::uint64_t{pattern} << PATTERN_SHIFT |
                static_cast<std::uint64_t>(kind) << KIND_SHIFT | (tryOr ? TRY_OR : 0) |
                (negated ? NEGATED : 0)),
          m_Text(text)
    {
    }

    /// Everything but the place in the text.
    std::uint64_t GetKey() const { return m_Key; }
    std::uint32_t GetText() const { return m_Text; }
    std::uint32_t GetPattern() const { return static_cast<std::uint32_t>(m_Key >> PATTERN_SHIFT); }
    ECall GetKind() const { return static_cast<ECall>(m_Key >> KIND_SHIFT & 7); }
    /// Whether it tries the next alternative on failure.
    bool TriesOr() const { return (m_Key & TRY_OR) != 0; }
    /// The negation flag.
    bool IsNegated() const { return (m_Key & NEGATED) != 0; }

private:
    static constexpr std::uint64_t NEGATED = 1;
    static constexpr std::uint64_t TRY_OR = 2;
    static constexpr int KIND_SHIFT = 2;
    static constexpr int PATTERN_SHIFT = 5;

    std::uint64_t m_Key; // one number, since a call is copied and looked up all the time
    std::uint32_t m_Text;
};

} // namespace utility
