#include "text/names/NameRangeIndex.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "text/names/NameParts.h"
#include "text/names/NameRangeItem.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <vector>

namespace utility
{

namespace
{

constexpr std::uint64_t HASH_START = 0xCBF29CE484222325;
constexpr std::uint64_t HASH_FACTOR = 0x100000001B3;
constexpr std::uint64_t STEM_FACTOR = 0x9E3779B97F4A7C15; // keeps stem and tail apart
constexpr std::int64_t PLAIN = -1;

std::uint64_t Hash(std::uint64_t hash, char16_t unit, bool caseSensitive)
{
    return (hash ^ (caseSensitive ? unit : ToUpper(unit))) * HASH_FACTOR;
}

} // namespace

/// The stem is hashed forwards and the tail backwards, so that two passes over a name give the keys
/// of all its partings.
class CNameRangeIndex::CNameHashes
{
public:
    CNameHashes(std::u16string_view name, bool caseSensitive)
    {
        if (name.size() > USUAL_LENGTH)
        {
            m_Long.resize(2 * (name.size() + 1));
            m_Front = m_Long.data();
        }
        m_Back = m_Front + name.size() + 1;
        m_Front[0] = HASH_START;
        m_Back[name.size()] = HASH_START;
        for (std::size_t index = 0; index < name.size(); ++index)
            m_Front[index + 1] = Hash(m_Front[index], name[index], caseSensitive);
        for (std::size_t index = name.size(); index-- > 0;)
            m_Back[index] = Hash(m_Back[index + 1], name[index], caseSensitive);
    }
    CNameHashes(const CNameHashes&) = delete;
    CNameHashes& operator=(const CNameHashes&) = delete;

    /// The key of a number that stands from `start` to `end`.
    std::uint64_t KeyAt(std::size_t start, std::size_t end) const
    {
        return m_Front[start] * STEM_FACTOR + m_Back[end];
    }

private:
    static constexpr std::size_t USUAL_LENGTH = 32; // longer names cost an allocation

    std::array<std::uint64_t, 2 * (USUAL_LENGTH + 1)> m_Usual; // filled as far as it is read
    std::vector<std::uint64_t> m_Long;
    std::uint64_t* m_Front = m_Usual.data(); // of what stands before each place
    std::uint64_t* m_Back;                   // of what stands from there on
};

std::uint64_t CNameRangeIndex::KeyOf(std::u16string_view stem, std::u16string_view tail) const
{
    std::uint64_t front = HASH_START;
    for (const char16_t unit : stem)
        front = Hash(front, unit, m_CaseSensitive);
    std::uint64_t back = HASH_START;
    tail = CutBlanks(tail);
    for (std::size_t index = tail.size(); index-- > 0;)
        back = Hash(back, tail[index], m_CaseSensitive);
    return front * STEM_FACTOR + back;
}

int CNameRangeIndex::SizeOf(const CNameRangeItem& item)
{
    return static_cast<int>(std::bit_width(static_cast<std::uint64_t>(item.GetCount()))) - 1;
}

CNameRangeIndex::CPlace CNameRangeIndex::PlaceOf(CNameRangeItem& item)
{
    return {item.GetLeast(), item.m_Order, &item};
}

CNameRangeIndex::CShape CNameRangeIndex::ShapeOf(const CNameRangeItem& item)
{
    const std::u16string_view stem = item.m_Stem.View();
    const std::u16string_view tail = CutBlanks(item.m_Tail.View());
    CShape shape{0, 0};
    while (shape.m_Before < stem.size() && IsDigit(stem[stem.size() - 1 - shape.m_Before]))
        ++shape.m_Before;
    while (shape.m_Behind < tail.size() && IsDigit(tail[shape.m_Behind]))
        ++shape.m_Behind;
    return shape;
}

std::int64_t CNameRangeIndex::OrderOf(const CNameRangeItem& item)
{
    return item.m_Order;
}

bool CNameRangeIndex::Reaches(const CNameRangeItem& item, std::int64_t number)
{
    return item.GetMost() >= number;
}

void CNameRangeIndex::Insert(CNameRangeItem& item)
{
    CGroup& group = m_Groups[item.m_Key];
    const int size = SizeOf(item);
    auto places = std::ranges::find(group, size, &CPlaces::m_Size);
    if (places == group.end())
        places = group.insert(group.end(), {size, {}});
    places->m_Places.insert(PlaceOf(item));
}

void CNameRangeIndex::Erase(CNameRangeItem& item, int size, const CPlace& place)
{
    const auto group = m_Groups.find(item.m_Key);
    const auto places = std::ranges::find(group->second, size, &CPlaces::m_Size);
    places->m_Places.erase(place);
    if (places->m_Places.empty())
        group->second.erase(places);
    if (group->second.empty())
        m_Groups.erase(group);
}

void CNameRangeIndex::Add(CNameRangeItem& item)
{
    item.m_Key = KeyOf(item.m_Stem.View(), item.m_Tail.View());
    Insert(item);
    if (!item.IsPlain())
        ++m_Shapes[ShapeOf(item)];
}

void CNameRangeIndex::Remove(CNameRangeItem& item)
{
    Erase(item, SizeOf(item), PlaceOf(item));
    if (item.IsPlain())
        return;
    const auto shape = m_Shapes.find(ShapeOf(item));
    if (--shape->second == 0)
        m_Shapes.erase(shape);
}

/// Tries each run of digits as the number, with as many digits at its ends left out as items have.
CNameRangeItem* CNameRangeIndex::Find(std::u16string_view name, int& number) const
{
    CNameRangeItem* best = nullptr;
    const auto consider = [&](CNameRangeItem& item)
    {
        int found = 0;
        const bool contains = item.Contains(name, m_CaseSensitive, found);
        if (contains && (!best || item.m_Order < best->m_Order))
        {
            best = &item;
            number = found;
        }
        return contains;
    };
    const CNameHashes hashes(name, m_CaseSensitive);
    VisitGroup(hashes.KeyAt(name.size(), name.size()), PLAIN, PLAIN, consider);

    std::size_t end = 0;
    for (std::size_t start = 0; start < name.size(); start = end + 1)
    {
        for (end = start; end < name.size() && IsDigit(name[end]);)
            ++end;
        for (const auto& [shape, count] : m_Shapes)
        {
            const std::size_t from = start + shape.m_Before;
            if (from >= end)
                break; // shapes are ordered by these
            if (from + shape.m_Behind >= end)
                continue;
            const std::size_t to = end - shape.m_Behind;
            const std::int64_t value = ReadDigits(name.substr(from, to - from));
            VisitGroup(hashes.KeyAt(from, to), value, value, consider);
        }
    }
    return best;
}

} // namespace utility
