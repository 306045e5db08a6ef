#pragma once

#include "platform/base/String.h"

#include <compare>
#include <cstdint>
#include <map>
#include <set>
#include <string_view>
#include <unordered_map>

namespace utility
{

class CNameRangeItem;

/// Finds the items of a range by name and by neighbouring number, whatever their count.
///
/// Items of one stem and tail stand together, by size class and least number: a span of class c
/// holds from 2^c to 2^(c+1) - 1 numbers, so whatever reaches a number begins within that distance
/// below it. Where spans lie upon each other, each of them is looked at.
class CNameRangeIndex
{
public:
    explicit CNameRangeIndex(bool caseSensitive) : m_CaseSensitive(caseSensitive) {}

    void Add(CNameRangeItem& item);
    void Remove(CNameRangeItem& item);

    /// The first item in list order that gives the name, with its number; null if none does.
    CNameRangeItem* Find(std::u16string_view name, int& number) const;

    /// What the items of one stem and tail have in common.
    std::uint64_t KeyOf(std::u16string_view stem, std::u16string_view tail) const;

    /// The first item in list order of that key that reaches into `least` to `most` and that
    /// `accept` takes. Keys are hashes, so `accept` looks at stem and tail, too.
    template <typename TAccept>
    CNameRangeItem* FindNear(std::uint64_t key, std::int64_t least, std::int64_t most,
                             TAccept accept) const;

    /// Changes an item's numbers by `change`, which leaves stem and tail.
    template <typename TChange>
    void Change(CNameRangeItem& item, TChange change);

private:
    struct CPlace
    {
        int m_Class;
        std::int64_t m_Least;
        std::int64_t m_Order;
        CNameRangeItem* m_Item;

        std::strong_ordering operator<=>(const CPlace& other) const
        {
            if (m_Class != other.m_Class)
                return m_Class <=> other.m_Class;
            if (m_Least != other.m_Least)
                return m_Least <=> other.m_Least;
            return m_Order <=> other.m_Order;
        }
        bool operator==(const CPlace& other) const { return (*this <=> other) == 0; }
    };
    struct CGroup
    {
        std::set<CPlace> m_Places;
        std::uint32_t m_Classes = 0; // a bit for each class that ever had an item
    };
    /// How many digits of its stem and of its tail touch an item's number: in a name these are one
    /// run with it.
    struct CShape
    {
        std::size_t m_Before;
        std::size_t m_Behind;

        auto operator<=>(const CShape&) const = default;
    };
    class CNameHashes; // of one name, at each of its places

    static CPlace PlaceOf(CNameRangeItem& item);
    static CShape ShapeOf(const CNameRangeItem& item);
    static std::int64_t OrderOf(const CNameRangeItem& item);
    static bool Reaches(const CNameRangeItem& item, std::int64_t number);
    void Insert(CNameRangeItem& item);
    void Erase(CNameRangeItem& item, const CPlace& place);
    /// All items of a key that reach into `least` to `most`, but of those that begin alike none
    /// behind the first for which `visit` is true.
    template <typename TVisit>
    void VisitGroup(std::uint64_t key, std::int64_t least, std::int64_t most, TVisit visit) const;
    bool m_CaseSensitive;
    std::unordered_map<std::uint64_t, CGroup> m_Groups;
    std::map<CShape, std::int64_t> m_Shapes; // of the numbered items, with their counts
};

template <typename TVisit>
void CNameRangeIndex::VisitGroup(std::uint64_t key, std::int64_t least, std::int64_t most,
                                 TVisit visit) const
{
    const auto found = m_Groups.find(key);
    if (found == m_Groups.end())
        return;
    const CGroup& group = found->second;
    for (int size = 0; group.m_Classes >> size != 0; ++size)
    {
        if ((group.m_Classes >> size & 1) == 0)
            continue;
        const std::int64_t reach = std::int64_t{2} << size;
        auto place = group.m_Places.lower_bound({size, least - reach, 0, nullptr});
        while (place != group.m_Places.end() && place->m_Class == size && place->m_Least <= most)
        {
            if (Reaches(*place->m_Item, least) && visit(*place->m_Item))
                place = group.m_Places.lower_bound({size, place->m_Least + 1, 0, nullptr});
            else
                ++place;
        }
    }
}

template <typename TAccept>
CNameRangeItem* CNameRangeIndex::FindNear(std::uint64_t key, std::int64_t least, std::int64_t most,
                                          TAccept accept) const
{
    CNameRangeItem* best = nullptr;
    VisitGroup(key, least, most,
               [&](CNameRangeItem& item)
               {
                   const bool accepted = accept(item);
                   if (accepted && (!best || OrderOf(item) < OrderOf(*best)))
                       best = &item;
                   return accepted;
               });
    return best;
}

template <typename TChange>
void CNameRangeIndex::Change(CNameRangeItem& item, TChange change)
{
    const CPlace before = PlaceOf(item);
    change();
    if (PlaceOf(item) == before)
        return;
    Erase(item, before);
    Insert(item);
}

} // namespace utility
