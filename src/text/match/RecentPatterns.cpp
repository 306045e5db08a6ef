#include "text/match/RecentPatterns.h"

#include <array>
#include <optional>

namespace utility
{

namespace
{

/// As many as a filter commonly tests in turn.
constexpr std::size_t KEPT_PATTERNS = 4;

/// A longer pattern takes more time to match than to read.
constexpr std::size_t LONGEST_KEPT = 256;

/// Whether the pattern is one to keep; looks no further than needed.
bool IsShort(const char16_t* pattern)
{
    for (std::size_t length = 0; length <= LONGEST_KEPT; ++length)
    {
        if (pattern[length] == 0)
            return true;
    }
    return false;
}

/// The patterns that a thread has used last.
class CRecentPatterns
{
public:
    const CWildcardPattern* Find(const char16_t* pattern, bool caseSensitive) const
    {
        for (const std::optional<CWildcardPattern>& kept : m_Kept)
        {
            if (kept && kept->IsMadeFrom(pattern, caseSensitive))
                return &*kept;
        }
        return nullptr;
    }

    const CWildcardPattern* Add(const char16_t* pattern, bool caseSensitive)
    {
        m_Oldest = (m_Oldest + 1) % KEPT_PATTERNS;
        return &m_Kept[m_Oldest].emplace(pattern, caseSensitive);
    }

private:
    std::array<std::optional<CWildcardPattern>, KEPT_PATTERNS> m_Kept;
    std::size_t m_Oldest = 0;
};

} // namespace

const CWildcardPattern* GetRecentPattern(const char16_t* pattern, bool caseSensitive)
{
    thread_local CRecentPatterns recent;
    if (const CWildcardPattern* const kept = recent.Find(pattern, caseSensitive))
        return kept;
    return IsShort(pattern) ? recent.Add(pattern, caseSensitive) : nullptr;
}

} // namespace utility
