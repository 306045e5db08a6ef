#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/collections/Position.h"
#include "platform/base/object/Object.h"

#include <cstdint>

namespace utility
{

class CNameRange;

/// One entry of a name range: a stem, a span of numbers and a tail, or a plain name.
///
///     text        stem  low  high  width  tail
///     "R[1-10]"   R     1    10    1
///     "U[03-1]A"  U     3    1     1      A      runs downwards
///     "IC"        IC    -1   -1    0             plain
///
/// Belongs to its range. Trailing blanks of numbered names are cut.
class UTILITY_CORE_API CNameRangeItem : public CObject
{
public:
    /// Empty `low` makes a plain name of the stem alone.
    CNameRangeItem(CNameRange* parent, std::u16string_view stem, std::u16string_view low,
                   std::u16string_view high, std::u16string_view tail);
    CNameRangeItem(const CNameRangeItem& other);
    CNameRangeItem& operator=(const CNameRangeItem&) = delete;

    bool IsPlain() const { return m_Low < 0; }
    bool IsUpward() const { return m_Low >= 0 && m_Low <= m_High; }
    bool IsSingle() const { return m_Low == m_High; }
    int GetLeast() const { return m_Low < m_High ? m_Low : m_High; }
    int GetMost() const { return m_Low < m_High ? m_High : m_Low; }
    /// How many names.
    std::int64_t GetCount() const { return std::int64_t{GetMost()} - GetLeast() + 1; }

    /// The name with that number.
    CString FormatName(int number) const;
    /// The entry's compact text with these marks.
    CString Format(const CString& start, const CString& end, const CString& separator) const;
    /// The same with the parent's characters.
    CString Format() const;
    /// Whether one of the names equals the text; `number` is then its number.
    bool Contains(std::u16string_view name, bool caseSensitive, int& number) const;

    // Walking by `m_Current`
    void Rewind() { m_Current = m_Low; }
    /// The current name; false once it was the item's last.
    bool TakeName(CString& name);

    CNameRange* m_Parent;
    int m_Width = 0; // least digits to print
    int m_Low = -1;
    int m_Current = -1;
    CString m_Stem;
    int m_High = -1; // below m_Low: the item runs downwards
    CString m_Tail;

    // For the range's index
    POSITION m_Position = nullptr; // in the range's list
    std::int64_t m_Order = 0;      // rises along the list
    std::uint64_t m_Key = 0;       // of stem and tail
};

} // namespace utility
