#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/collections/ObList.h"
#include "platform/base/collections/Position.h"

#include <memory>
#include <vector>

namespace utility
{

class CNameRangeIndex;
class CNameRangeItem;
struct CNameParts;

/// A set of names in compact form, such as users type it.
///
///     text           names
///     "R[1-3],C3"    R1 R2 R3 C3
///     "U[1-2]A"      U1A U2A
///     "R1[0-2]"      R10 R11 R12    digits before the bracket belong to the numbers
///     "R[3-1]"       R3 R2 R1
///     "R[08-10]"     R08 R09 R10    as many digits as the shorter bound
///
/// Nothing is listed that need not be: R[1-2000000000] is one item. Names are compared by
/// `StringCompare` without numbers. A failed parse keeps the items before the fault and makes the
/// range invalid; nothing else fails. One thread; two walks at once disturb each other.
class UTILITY_CORE_API CNameRange
{
public:
    CNameRange();
    CNameRange(char16_t rangeStart, char16_t rangeEnd, char16_t rangeSep, char16_t itemSep,
               bool caseSensitive, bool ordered);
    virtual ~CNameRange();
    CNameRange(const CNameRange&) = delete;
    CNameRange& operator=(const CNameRange&) = delete;

    char16_t GetRangeStartChar() const { return m_RangeStart; }
    char16_t GetRangeEndChar() const { return m_RangeEnd; }
    char16_t GetRangeSepChar() const { return m_RangeSep; }
    char16_t GetItemSepChar() const { return m_ItemSep; }
    bool IsCaseSensitive() const { return m_CaseSensitive; }
    bool IsOrdered() const { return m_Ordered; }
    bool IsValid() const { return m_Valid; }
    int GetItemCount() const { return m_Items.GetCount(); }

    // Contents
    void SetString(const CString& text);
    /// One span if both have the same stem and tail, also downwards; otherwise two names.
    void SetString(const CString& first, const CString& last);
    /// Reads what `ConvertToWildcardString` gives.
    void SetFromWildcardString(CString text);
    void Clear();
    /// Adds each name of the text; spans grow and join. When ordered only the last item grows.
    ///
    ///     range        name    result
    ///     "R[3-5]"     "R2"    "R[2-5]"
    ///     "R1,R3"      "R2"    "R[1-3]"
    ///     "R[1-5]"     "R04"   "R[1-5],R04"
    ///     "R5"         "R4"    "R[4-5]", ordered "R[5-4]"
    void Add(const CString& text);
    /// True if any name of the text was there. "R[2-5]" less "R4" is "R[2-3],R5".
    bool Delete(const CString& text);
    bool Contains(const CString& name) const;

    // Walking; an empty text marks the end
    CString First();
    CString First(POSITION& position);
    CString Next(POSITION& position);
    /// The items' compact texts.
    CString FirstItem(POSITION& position) const;
    CString NextItem(POSITION& position) const;
    CString FirstItemStem() const;
    /// Of single names; at most the largest int.
    int Count() const;

    CString GetString() const;
    CString GetString(CString rangeStart, CString rangeEnd, CString rangeSep,
                      CString itemSep) const;
    /// "R[1-10],C3" becomes "R%[1:10%]|C3".
    CString ConvertToWildcardString() const;
    /// Valid, and at least two names.
    bool IsRange() const;

    /// The text holds the item separator, or both range marks.
    static bool IsRange(const CString& text, char16_t rangeStart, char16_t rangeEnd,
                        char16_t rangeSep, char16_t itemSep);
    /// Parts a name at its last run of digits; a digit in first place begins no run by itself.
    ///
    ///     name              stem          number  width  tail
    ///     "U02A"            U             2       2      A
    ///     "12"                            12      2
    ///     "5"               5             -1      0
    ///     "R2147483647"     R2147483647   -1      0              and every larger number
    static void GetStem(const CString& name, CString& stem, int& number, int& width, CString& tail);
    /// "R007" with 12 becomes "R12".
    static void Renumber(CString& name, int number);
    /// Whether the two texts have a name in common, case apart.
    static bool IsNameOverlap(const CString& left, const CString& right, char16_t rangeStart,
                              char16_t rangeEnd, char16_t rangeSep, char16_t itemSep);

private:
    // NameRangeRead.cpp
    bool ValidRange(std::u16string_view text);
    bool IsSingleName(std::u16string_view entry) const;
    bool AddNameItem(std::u16string_view entry);
    bool AddMember(const CString& prefix, const CString& digits, std::u16string_view member,
                   std::u16string_view suffix);
    void AddSingleName(std::u16string_view name);
    void AddParts(const CNameParts& parts);
    CNameParts GetRangeStem(std::u16string_view name) const;

    // NameRangeEdit.cpp
    template <typename TDo>
    void ForEachName(const CString& text, TDo doIt) const;
    void AddOne(std::u16string_view name);
    bool DeleteOne(std::u16string_view name);
    void Grow(CNameRangeItem& item, int number, int width);
    void Join(CNameRangeItem& item, int end);
    bool HasParts(const CNameRangeItem& item, std::u16string_view stem,
                  std::u16string_view tail) const;
    CNameRangeIndex& GetIndex() const;

    void AppendItem(std::unique_ptr<CNameRangeItem> item);
    void RemoveItem(CNameRangeItem& item);
    CNameRangeItem& ItemAt(POSITION position) const;
    CNameRangeItem& NextOf(POSITION& position) const;
    // NameRangeOverlap.cpp
    bool SharesSmallItem(const CNameRange& other, std::vector<const CNameRangeItem*>& large) const;

    CObList m_Items{10}; // of CNameRangeItem, owned
    CString m_Text;      // as last set
    bool m_Valid = true;
    char16_t m_RangeStart = u'[';
    char16_t m_RangeEnd = u']';
    char16_t m_RangeSep = u'-';
    char16_t m_ItemSep = u',';
    bool m_CaseSensitive = false;
    bool m_Ordered = false;

    mutable std::unique_ptr<CNameRangeIndex> m_Index; // made when first asked for a name
};

} // namespace utility
