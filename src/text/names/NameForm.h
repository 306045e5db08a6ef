#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

namespace utility
{

class CNameRangeItem;

/// All names of one length that a numbered item gives: fixed text around a number of so many
/// digits.
///
/// Views into the item. An item has at most ten forms with names in them.
class CNameForm
{
public:
    CNameForm(const CNameRangeItem& item, int length);

    bool HasNames() const { return m_Least <= m_Most; }
    int GetLength() const { return m_End + static_cast<int>(m_Tail.size()); }
    std::int64_t GetLeast() const { return m_Least; }
    std::int64_t GetMost() const { return m_Most; }

    /// Forms of one length with the number at the same place are ordered together, those of equal
    /// fixed text next to each other, case apart.
    std::strong_ordering ComparePlace(const CNameForm& other) const;
    std::strong_ordering CompareText(const CNameForm& other) const;

    /// Whether a name is common to both; the lengths are equal.
    bool Overlaps(const CNameForm& other) const;

private:
    bool IsDigitPlace(int index) const { return index >= m_Start && index < m_End; }
    char16_t FixedAt(int index) const;
    bool NarrowToShared(const CNameForm& other, int start, int end, std::int64_t& least,
                        std::int64_t& most) const;

    std::u16string_view m_Stem;
    std::u16string_view m_Tail;
    int m_Start; // of the digits
    int m_End;
    std::int64_t m_Least = 0;
    std::int64_t m_Most = -1; // below the least: no name has that length
};

/// The lengths that an item's names can have.
void GetNameLengths(const CNameRangeItem& item, int& least, int& most);

/// A hash of the item's names with each run of digits as one unit: items whose hashes differ have
/// no name in common.
std::uint64_t HashOfShape(const CNameRangeItem& item);

} // namespace utility
