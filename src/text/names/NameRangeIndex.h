#pragma once

#include "platform/base/String.h"

#include <cstdint>
#include <map>
#include <set>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace utility
{

class CNameRangeItem;

/// Finds the items of a range by name and by neighbouring number, whatever their count.
///
/// Items of one stem and tail stand together, parted by size and then by least number: a span of
/// size c holds from 2^c to 2^(c+1) - 1 numbers, so whatever reaches a number begins within that
/// distance below it. Where spans lie upon each other, each of them is looked at.
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
        std::int64_t m_Least;
        std::int64_t m_Order;
        CNameRangeItem* m_Item;

        bool operator<(const CPlace& other) const
        {
            return m_Least != other.m_Least ? m_Least < other.m_Least : m_Order < other.m_Order;
        }
    };
    /// The items of one key and size.
    struct CPlaces
    {
        int m_Size;
        std::set<CPlace> m_Places; // never empty
    };
    using CGroup = std::vector<CPlaces>; // few sizes, in no order; never empty
    /// How many digits of its stem and of its tail touch an item's number: in a name these are one
    /// run with it.
    struct CShape
    {
        std::size_t m_Before;
        std::size_t m_Behind;

        auto operator<=>(const CShape&) const = default;
    };
    class CNameHashes; // of one name, at each of its places

    static int SizeOf(const CNameRangeItem& item);
    static CPlace PlaceOf(CNameRangeItem& item);
    static CShape ShapeOf(const CNameRangeItem& item);
    static std::int64_t OrderOf(const CNameRangeItem& item);
    static bool Reaches(const CNameRangeItem& item, std::int64_t number);
    void Insert(CNameRangeItem& item);
    void Erase(CNameRangeItem& item, int size, const CPlace& place);
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
    for (const CPlaces& group : found->second)
    {
        const std::int64_t reach = std::int64_t{2} << group.m_Size;
        auto place = group.m_Places.lower_bound({least - reach, 0, nullptr});
        while (place != group.m_Places.end() && place->m_Least <= most)
        {
            if (Reaches(*place->m_Item, least) && visit(*place->m_Item))
                place = group.m_Places.lower_bound({place->m_Least + 1, 0, nullptr});
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
    const int size = SizeOf(item);
    const CPlace place = PlaceOf(item);
    change();
    if (SizeOf(item) == size && PlaceOf(item).m_Least == place.m_Least)
        return;
    Erase(item, size, place);
    Insert(item);
}

} // namespace utility
