#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "text/match/WildcardRange.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// What stands at a place of a pattern.
enum class EWildcard : std::uint8_t
{
    End,
    Plain,         // a unit that matches itself alone; also the % of an unknown item
    AnyRun,        // *
    AnyUnit,       // ?
    Or,            // |
    Open,          // %{
    Close,         // %}
    Not,           // %^
    Unit,          // %c %C %d
    Run,           // %i %a %A %s %S
    RealNumber,    // %f
    UnitName,      // %u
    Prefix,        // %p
    CapitalPrefix, // %P
    Range,         // %[
};

/// A place of a pattern, and where the matcher goes on from it.
///
/// All skips step over a group by running to the first %} behind its %{: nesting is not counted.
struct CWildcardPlace
{
    EWildcard m_Kind;
    BYTE m_Classes;       // of the units that may be met here; those of an item are also its run's
    char16_t m_Unit;      // upper case, unless case counts; met by itself before any meaning it has
    char16_t m_OtherUnit; // the one more that is met as it is: its lower case, or again itself
    std::uint32_t m_Next; // behind the next |; 0 if a %} or the end comes first
    std::uint32_t m_AfterGroup;        // behind the %} that ends the present alternative's group
    std::uint32_t m_AfterAlternatives; // where the walk over a group's alternatives ends
    std::uint32_t m_NegationEnd;       // on the first |, %} or %^, or the end
    std::uint32_t m_Range;             // number of the range

    /// Whether the text's unit is the one that stands here.
    bool IsMetBy(char16_t unit) const { return unit == m_Unit || unit == m_OtherUnit; }
};

/// A pattern made ready for matching: each place with its meaning and its skips.
///
/// Takes time and memory in proportion to the pattern.
class UTILITY_CORE_API CWildcardPattern
{
public:
    CWildcardPattern(std::u16string_view pattern, bool caseSensitive);

    /// Whether it was made from these.
    bool IsMadeFrom(const char16_t* pattern, bool caseSensitive) const
    {
        const char16_t* const units = m_Units.c_str();
        std::size_t place = 0;
        while (units[place] == pattern[place] && units[place] != 0)
            ++place;
        return units[place] == pattern[place] && caseSensitive == m_CaseSensitive;
    }

    std::uint32_t GetLength() const { return static_cast<std::uint32_t>(m_Units.size()); }
    const CWildcardPlace* GetPlaces() const { return m_Places.data(); } // one more, for the end
    const CWildcardRange& GetRange(const CWildcardPlace& place) const
    {
        return m_Ranges[place.m_Range];
    }
    bool HasAlternatives() const { return m_HasAlternatives; }

    /// The one pattern for the empty text; within a longer pattern %# is no item.
    bool IsEmptyItem() const { return m_Units == u"%#"; }

private:
    void ReadPlace(std::uint32_t place, CNumberFinder& numbers);
    void ReadItem(std::uint32_t place, CNumberFinder& numbers);
    void FindSkips(std::uint32_t place, std::uint32_t closing);

    std::u16string m_Units;
    bool m_CaseSensitive;
    bool m_HasAlternatives = false;
    std::vector<CWildcardPlace> m_Places;
    std::vector<CWildcardRange> m_Ranges;
};

} // namespace utility
