#pragma once

#include "platform/base/collections/TypedPtrList.h"
#include "text/SortedList.h"

namespace utility
{

/// A sorted list seen as a list of the pointer type `T`.
template <typename T>
class CTypedSortedList : public CTypedPtrList<CSortedList, T>
{
    using CBase = CTypedPtrList<CSortedList, T>;

public:
    using CBase::CBase;

    POSITION AddSorted(T item) { return CBase::AddSorted(item); }
    POSITION AddUnique(T item) { return CBase::AddUnique(item); }
    POSITION FindUnique(T item) const { return CBase::FindUnique(item); }

    T First(POSITION& position) const { return static_cast<T>(CBase::First(position)); }
    T Last(POSITION& position) const { return static_cast<T>(CBase::Last(position)); }
    T Next(POSITION& position, bool goRound = false) const
    {
        return static_cast<T>(CBase::Next(position, goRound));
    }
    T Prev(POSITION& position, bool goRound = false) const
    {
        return static_cast<T>(CBase::Prev(position, goRound));
    }
    T This(POSITION position) const { return static_cast<T>(CBase::This(position)); }
};

} // namespace utility
