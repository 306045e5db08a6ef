#include "text/names/NameRangeIndex.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "text/names/NameRangeItem.h"

#include <bit>
#include <limits>
#include <vector>

namespace utility
{

namespace
{

constexpr std::uint64_t HASH_START = 0xCBF29CE484222325;
constexpr std::uint64_t HASH_FACTOR = 0x100000001B3;
constexpr std::uint64_t STEM_FACTOR = 0x9E3779B97F4A7C15; // keeps stem and tail apart
constexpr std::int64_t PLAIN = -1;

bool TouchesDigits(const CNameRangeItem& item)
{
    const std::u16string_view stem = item.m_Stem.View();
    const std::u16string_view tail = item.m_Tail.View();
    return !item.IsPlain() &&
           ((!stem.empty() && IsDigit(stem.back())) || (!tail.empty() && IsDigit(tail.front())));
}

/// Saturated beyond what an item can hold.
std::int64_t ReadRun(std::u16string_view digits)
{
    std::int64_t number = 0;
    for (const char16_t digit : digits)
    {
        number = number * 10 + (digit - u'0');
        if (number > std::numeric_limits<std::int32_t>::max())
            break;
    }
    return number;
}

} // namespace

std::uint64_t CNameRangeIndex::Hash(std::uint64_t hash, char16_t unit) const
{
    return (hash ^ (m_CaseSensitive ? unit : ToUpper(unit))) * HASH_FACTOR;
}

/// The stem is hashed forwards and the tail backwards, so that all places of one name can be tried
/// in one pass each.
std::uint64_t CNameRangeIndex::KeyOf(std::u16string_view stem, std::u16string_view tail) const
{
    std::uint64_t front = HASH_START;
    for (const char16_t unit : stem)
        front = Hash(front, unit);
    std::uint64_t back = HASH_START;
    tail = CutBlanks(tail);
    for (std::size_t index = tail.size(); index-- > 0;)
        back = Hash(back, tail[index]);
    return front * STEM_FACTOR + back;
}

std::uint64_t CNameRangeIndex::KeyOf(const CNameRangeItem& item) const
{
    return KeyOf(item.m_Stem.View(), item.m_Tail.View());
}

CNameRangeIndex::CPlace CNameRangeIndex::PlaceOf(CNameRangeItem& item)
{
    const auto size = std::bit_width(static_cast<std::uint64_t>(item.GetCount())) - 1;
    return {static_cast<int>(size), item.GetLeast(), item.m_Order, &item};
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
    CGroup& group = m_Groups[KeyOf(item)];
    const CPlace place = PlaceOf(item);
    group.m_Places.insert(place);
    group.m_Classes |= std::uint32_t{1} << place.m_Class;
}

void CNameRangeIndex::Erase(std::uint64_t key, const CPlace& place)
{
    const auto group = m_Groups.find(key);
    group->second.m_Places.erase(place);
    if (group->second.m_Places.empty())
        m_Groups.erase(group);
}

void CNameRangeIndex::Add(CNameRangeItem& item)
{
    Insert(item);
    if (TouchesDigits(item))
        m_Touching[item.m_Order] = &item;
}

void CNameRangeIndex::Remove(CNameRangeItem& item)
{
    Erase(KeyOf(item), PlaceOf(item));
    m_Touching.erase(item.m_Order);
}

void CNameRangeIndex::Consider(CNameRangeItem& item, const CString& name, CNameRangeItem*& best,
                               int& number) const
{
    int found = 0;
    if ((best && best->m_Order <= item.m_Order) || !item.Contains(name, m_CaseSensitive, found))
        return;
    best = &item;
    number = found;
}

/// Tries each whole run of digits as the number.
void CNameRangeIndex::FindByRuns(const CString& name, CNameRangeItem*& best, int& number) const
{
    const std::u16string_view text = name.View();
    struct CRun
    {
        std::size_t m_Start;
        std::size_t m_End;
        std::uint64_t m_Front; // hash of what stands before
    };
    std::vector<CRun> runs;
    std::uint64_t front = HASH_START;
    for (std::size_t index = 0; index < text.size(); ++index)
    {
        if (IsDigit(text[index]) && (index == 0 || !IsDigit(text[index - 1])))
            runs.push_back({index, index, front});
        if (IsDigit(text[index]))
            runs.back().m_End = index + 1;
        front = Hash(front, text[index]);
    }

    std::uint64_t back = HASH_START;
    std::size_t place = text.size();
    for (; !runs.empty(); runs.pop_back())
    {
        const CRun& run = runs.back();
        while (place > run.m_End)
            back = Hash(back, text[--place]);
        const std::int64_t found = ReadRun(text.substr(run.m_Start, run.m_End - run.m_Start));
        VisitGroup(run.m_Front * STEM_FACTOR + back, found, found,
                   [&](CNameRangeItem& item) { Consider(item, name, best, number); });
    }
}

CNameRangeItem* CNameRangeIndex::Find(const CString& name, int& number) const
{
    CNameRangeItem* best = nullptr;
    VisitGroup(KeyOf(name.View(), {}), PLAIN, PLAIN,
               [&](CNameRangeItem& item) { Consider(item, name, best, number); });
    FindByRuns(name, best, number);
    for (const auto& [order, item] : m_Touching)
    {
        if (best && best->m_Order <= order)
            break;
        Consider(*item, name, best, number);
    }
    return best;
}

} // namespace utility
