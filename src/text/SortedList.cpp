#include "text/SortedList.h"

#include <algorithm>
#include <vector>

namespace utility
{

CSortedList::CSortedList(SortFunction function, void* data)
    : m_SortFunction(function),
      m_SortData(data)
{
}

void CSortedList::SetSortFunction(SortFunction function, void* data)
{
    m_SortFunction = function;
    m_SortData = data;
    Sort();
}

void CSortedList::Sort()
{
    if (!m_SortFunction)
        return;

    std::vector<void*> items;
    for (POSITION position = GetHeadPosition(); position;)
        items.push_back(GetNext(position));
    // A merge, since a comparison may go round in a circle: such a sort always ends and loses
    // nothing.
    std::stable_sort(items.begin(), items.end(),
                     [this](void* a, void* b) { return m_SortFunction(a, b, m_SortData) < 0; });
    auto item = items.begin();
    for (POSITION position = GetHeadPosition(); position; ++item)
        GetNext(position) = *item;
}

POSITION CSortedList::AddSorted(void* item)
{
    if (!m_SortFunction)
        return AddTail(item);

    // From the tail: most lists are filled in order.
    POSITION position = GetTailPosition();
    while (position)
    {
        const POSITION here = position;
        if (m_SortFunction(GetPrev(position), item, m_SortData) <= 0)
            return InsertAfter(here, item);
    }
    return AddHead(item);
}

POSITION CSortedList::AddUnique(void* item)
{
    return FindUnique(item) ? nullptr : AddSorted(item);
}

void CSortedList::AddSorted(const CPtrList& items)
{
    AddTail(items);
    Sort();
}

POSITION CSortedList::FindUnique(void* item) const
{
    if (!m_SortFunction)
        return Find(item);

    for (POSITION position = GetHeadPosition(); position;)
    {
        const POSITION here = position;
        if (m_SortFunction(GetNext(position), item, m_SortData) == 0)
            return here;
    }
    return nullptr;
}

void* CSortedList::First(POSITION& position) const
{
    position = GetHeadPosition();
    return This(position);
}

void* CSortedList::Last(POSITION& position) const
{
    position = GetTailPosition();
    return This(position);
}

void* CSortedList::Next(POSITION& position, bool goRound) const
{
    if (!position)
        return nullptr;

    GetNext(position);
    return !position && goRound ? First(position) : This(position);
}

void* CSortedList::Prev(POSITION& position, bool goRound) const
{
    if (!position)
        return nullptr;

    GetPrev(position);
    return !position && goRound ? Last(position) : This(position);
}

} // namespace utility
