#include "text/match/StringCompare.h"
#include "text/names/NameRange.h"
#include "text/names/NameRangeIndex.h"
#include "text/names/NameRangeItem.h"

#include <algorithm>

namespace utility
{

namespace
{

bool HasParts(const CNameRangeItem& item, const CString& stem, const CString& tail,
              bool caseSensitive)
{
    return StringCompare(item.m_Stem, stem, caseSensitive, false, true) == 0 &&
           StringCompare(item.m_Tail, tail, caseSensitive, false, true) == 0;
}

/// What an item may take: never so that one of its names would be lost.
bool MayGrow(const CNameRangeItem& item, int number, bool ordered)
{
    return item.IsUpward() &&
           ((!ordered && item.m_Low == number + 1) || item.m_High == number - 1 ||
            (item.IsSingle() && item.m_High == number + 1));
}

int CountDigits(int number)
{
    CString text;
    AppendNumber(text, number, 0);
    return text.GetLength();
}

} // namespace

void CNameRange::Add(const CString& text)
{
    CNameRange added(m_RangeStart, m_RangeEnd, m_RangeSep, m_ItemSep, m_CaseSensitive, false);
    added.SetString(text);
    POSITION position = nullptr;
    for (CString name = added.First(position); !name.IsEmpty(); name = added.Next(position))
        AddOne(name);
}

bool CNameRange::Delete(const CString& text)
{
    CNameRange deleted(m_RangeStart, m_RangeEnd, m_RangeSep, m_ItemSep, m_CaseSensitive, false);
    deleted.SetString(text);
    bool found = false;
    POSITION position = nullptr;
    for (CString name = deleted.First(position); !name.IsEmpty() && !m_Items.IsEmpty();
         name = deleted.Next(position))
        found |= DeleteOne(name);
    return found;
}

void CNameRange::AddOne(const CString& name)
{
    CString stem;
    CString tail;
    int number = 0;
    int width = 0;
    GetRangeStem(name, stem, number, width, tail);
    if (width < 1)
    {
        AddSingleName(name);
        return;
    }

    const auto grows = [&](const CNameRangeItem& item)
    {
        return MayGrow(item, number, m_Ordered) && HasParts(item, stem, tail, m_CaseSensitive);
    };
    int ignored = 0;
    CNameRangeItem* holder = nullptr;
    CNameRangeItem* grower = nullptr;
    if (m_Ordered)
    {
        CNameRangeItem* last = m_Items.IsEmpty() ? nullptr : &ItemAt(m_Items.GetTailPosition());
        if (last && last->Contains(name, m_CaseSensitive, ignored))
            holder = last;
        else if (last && grows(*last))
            grower = last;
    }
    else
    {
        holder = GetIndex().Find(name, ignored);
        grower = GetIndex().FindNear(stem, tail, std::int64_t{number} - 1, std::int64_t{number} + 1,
                                     grows);
    }
    if (holder && (!grower || holder->m_Order <= grower->m_Order))
        return;
    if (grower)
        Grow(*grower, number, width);
    else
        AddSingleName(name);
}

void CNameRange::Grow(CNameRangeItem& item, int number, int width)
{
    const bool below = !m_Ordered && item.m_Low == number + 1;
    const bool turns = !below && item.m_High != number - 1;
    GetIndex().Change(item,
                      [&]
                      {
                          // The width as typed counts downwards alone.
                          if (below && width < item.m_Width &&
                              CountDigits(item.m_Low) == item.m_Width)
                              item.m_Width = width;
                          (below ? item.m_Low : item.m_High) = number;
                      });
    if (!turns)
        Join(item, number);
}

/// Takes in the first other item that adjoins or overlaps at the end that has just grown.
void CNameRange::Join(CNameRangeItem& item, int end)
{
    const bool above = end == item.m_High;
    const auto meets = [&](const CNameRangeItem& other)
    {
        if (&other == &item || !other.IsUpward() ||
            !HasParts(other, item.m_Stem, item.m_Tail, m_CaseSensitive))
            return false;
        return above ? other.m_Low - 1 <= end && other.m_High >= end
                     : other.m_High + 1 >= end && other.m_Low <= end;
    };
    CNameRangeItem* other = GetIndex().FindNear(item.m_Stem, item.m_Tail, std::int64_t{end} - 1,
                                                std::int64_t{end} + 1, meets);
    if (!other)
        return;
    GetIndex().Change(item,
                      [&]
                      {
                          item.m_Low = std::min(item.m_Low, other->m_Low);
                          item.m_High = std::max(item.m_High, other->m_High);
                          item.m_Width = std::min(item.m_Width, other->m_Width);
                      });
    RemoveItem(*other);
}

bool CNameRange::DeleteOne(const CString& name)
{
    int number = 0;
    CNameRangeItem* item = GetIndex().Find(name, number);
    if (!item)
        return false;
    if (item->IsSingle())
    {
        RemoveItem(*item);
        return true;
    }

    const int step = item->IsUpward() ? 1 : -1;
    if (number == item->m_Low)
    {
        GetIndex().Change(*item, [&] { item->m_Low += step; });
        return true;
    }
    if (number != item->m_High)
    {
        auto rest = std::make_unique<CNameRangeItem>(*item);
        rest->m_Low = number + step;
        AppendItem(std::move(rest));
    }
    GetIndex().Change(*item, [&] { item->m_High = number - step; });
    return true;
}

} // namespace utility
