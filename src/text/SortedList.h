#pragma once

#include "platform/base/Export.h"
#include "platform/base/collections/PtrList.h"

namespace utility
{

/// A list of pointers that keeps them in the order of a comparison.
///
/// What the pointers point at is not owned. An element added by the list's own calls stands where
/// these put it.
class UTILITY_CORE_API CSortedList : public CPtrList
{
public:
    /// Below 0, 0 or above 0 as `a` stands before, beside or behind `b`.
    using SortFunction = int (*)(void* a, void* b, void* data);

    explicit CSortedList(SortFunction function = nullptr, void* data = nullptr);

    /// Sorts what the list holds, equals in their present order; null leaves it as it is.
    void SetSortFunction(SortFunction function, void* data = nullptr);
    SortFunction GetSortFunction() const { return m_SortFunction; }
    void* GetSortData() const { return m_SortData; }

    /// True if there is a comparison.
    bool IsSorted() const { return m_SortFunction != nullptr; }

    /// Adds behind all that are not greater; without a comparison at the end.
    POSITION AddSorted(void* item);
    /// As above; null, and nothing is added, if an equal one is there.
    POSITION AddUnique(void* item);
    /// Adds many at once, as many calls of `AddSorted` would but in n log n time.
    void AddSorted(const CPtrList& items);
    /// The first equal element, or null; without a comparison the same pointer.
    POSITION FindUnique(void* item) const;

    // Walking: each gives the element and sets the position to it; null at the end or if there is
    // none
    void* First(POSITION& position) const;
    void* Last(POSITION& position) const;
    /// With `goRound` the first follows the last; from a null position there is no next.
    void* Next(POSITION& position, bool goRound = false) const;
    void* Prev(POSITION& position, bool goRound = false) const;
    /// The element there, or null for a null position.
    void* This(POSITION position) const { return position ? GetAt(position) : nullptr; }

private:
    void Sort();

    SortFunction m_SortFunction;
    void* m_SortData;
};

} // namespace utility
