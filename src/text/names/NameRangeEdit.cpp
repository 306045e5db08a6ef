#include "text/names/NameParts.h"
#include "text/names/NameRange.h"
#include "text/names/NameRangeIndex.h"
#include "text/names/NameRangeItem.h"

#include <algorithm>

namespace utility
{

namespace
{

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

/// Of a text: one name is not worth a range of its own.
template <typename TDo>
void CNameRange::ForEachName(const CString& text, TDo doIt) const
{
    const std::u16string_view entry = TrimEntry(text.View());
    if (entry.find(m_ItemSep) == entry.npos && IsSingleName(entry))
    {
        if (!entry.empty())
            doIt(entry);
        return;
    }
    CNameRange names(m_RangeStart, m_RangeEnd, m_RangeSep, m_ItemSep, m_CaseSensitive, false);
    names.SetString(text);
    POSITION position = nullptr;
    for (CString name = names.First(position); !name.IsEmpty(); name = names.Next(position))
        doIt(name.View());
}

void CNameRange::Add(const CString& text)
{
    ForEachName(text, [&](std::u16string_view name) { AddOne(name); });
}

bool CNameRange::Delete(const CString& text)
{
    bool found = false;
    ForEachName(text, [&](std::u16string_view name) { found |= DeleteOne(name); });
    return found;
}

bool CNameRange::HasParts(const CNameRangeItem& item, std::u16string_view stem,
                          std::u16string_view tail) const
{
    return IsSameName(item.m_Stem.View(), stem, m_CaseSensitive) &&
           IsSameName(item.m_Tail.View(), tail, m_CaseSensitive);
}

void CNameRange::AddOne(std::u16string_view name)
{
    const CNameParts parts = GetRangeStem(name);
    if (!parts.HasNumber())
    {
        AddSingleName(name);
        return;
    }

    const std::int64_t number = parts.m_Number;
    const auto grows = [&](const CNameRangeItem& item)
    {
        return MayGrow(item, parts.m_Number, m_Ordered) &&
               HasParts(item, parts.m_Stem, parts.m_Tail);
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
        const CNameRangeIndex& index = GetIndex();
        holder = index.Find(name, ignored);
        grower =
            index.FindNear(index.KeyOf(parts.m_Stem, parts.m_Tail), number - 1, number + 1, grows);
    }
    if (holder && (!grower || holder->m_Order <= grower->m_Order))
        return;
    if (grower)
        Grow(*grower, parts.m_Number, parts.GetWidth());
    else
        AddParts(parts);
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
            !HasParts(other, item.m_Stem.View(), item.m_Tail.View()))
            return false;
        return above ? other.m_Low - 1 <= end && other.m_High >= end
                     : other.m_High + 1 >= end && other.m_Low <= end;
    };
    CNameRangeItem* other =
        GetIndex().FindNear(item.m_Key, std::int64_t{end} - 1, std::int64_t{end} + 1, meets);
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

bool CNameRange::DeleteOne(std::u16string_view name)
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
