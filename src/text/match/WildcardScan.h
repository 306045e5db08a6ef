#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace utility
{

/// The scans that walk a pattern without looking at a text.
///
/// All of them step over a group by running to the first %} behind its %{: nesting is not counted.
/// The pattern must outlive the object. A position at the pattern's length means its end.
class CWildcardScan
{
public:
    explicit CWildcardScan(std::u16string_view pattern) : m_Pattern(pattern) {}

    /// From here on looks results up instead of walking; pays for long matches.
    void Prepare();

    /// Whether the item with this letter stands there.
    bool IsItem(std::uint32_t position, char16_t letter) const
    {
        return position + 1 < m_Pattern.size() && m_Pattern[position] == u'%' &&
               m_Pattern[position + 1] == letter;
    }

    /// Behind the first |, or on the first %}, or the end.
    std::uint32_t NextAlternative(std::uint32_t position) const;

    /// Whether a result of NextAlternative is one: neither a %} nor the end.
    bool IsAlternative(std::uint32_t position) const
    {
        return position < m_Pattern.size() && !IsItem(position, u'}');
    }

    /// Behind the %} that ends the present alternative's group, or the end.
    std::uint32_t AfterGroup(std::uint32_t position) const;

    /// Where the walk over a group's alternatives ends, for the position of its first one.
    std::uint32_t AfterAlternatives(std::uint32_t position) const;

    /// On the first |, %} or %^, or the end.
    std::uint32_t NegationEnd(std::uint32_t position) const;

private:
    std::uint32_t GetEnd() const { return static_cast<std::uint32_t>(m_Pattern.size()); }
    std::uint32_t StepOver(std::uint32_t position) const;
    std::uint32_t BehindClosing(std::uint32_t position) const;

    struct CRow
    {
        std::uint32_t m_Closing; // the first %}
        std::uint32_t m_NextAlternative;
        std::uint32_t m_AfterGroup;
        std::uint32_t m_AfterAlternatives;
        std::uint32_t m_NegationEnd;
    };

    std::u16string_view m_Pattern;
    std::vector<CRow> m_Rows; // by position; those at and above m_Known are filled
    std::uint32_t m_Known = UINT32_MAX;
};

} // namespace utility
