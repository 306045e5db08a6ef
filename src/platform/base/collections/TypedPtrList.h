#pragma once

#include "platform/base/collections/Position.h"

namespace utility
{

/// A pointer list `B` (`CPtrList` or `CObList`) seen as a list of the pointer type `T`.
template <typename B, typename T>
class CTypedPtrList : public B
{
public:
    using B::B;

    T GetHead() const { return static_cast<T>(B::GetHead()); }
    T GetTail() const { return static_cast<T>(B::GetTail()); }
    T RemoveHead() { return static_cast<T>(B::RemoveHead()); }
    T RemoveTail() { return static_cast<T>(B::RemoveTail()); }
    POSITION AddHead(T element) { return B::AddHead(element); }
    POSITION AddTail(T element) { return B::AddTail(element); }
    void AddHead(const CTypedPtrList& source) { B::AddHead(source); }
    void AddTail(const CTypedPtrList& source) { B::AddTail(source); }

    T GetNext(POSITION& position) const { return static_cast<T>(B::GetNext(position)); }
    T GetPrev(POSITION& position) const { return static_cast<T>(B::GetPrev(position)); }
    T GetAt(POSITION position) const { return static_cast<T>(B::GetAt(position)); }
    void SetAt(POSITION position, T element) { B::SetAt(position, element); }
    POSITION InsertBefore(POSITION position, T element)
    {
        return B::InsertBefore(position, element);
    }
    POSITION InsertAfter(POSITION position, T element) { return B::InsertAfter(position, element); }
};

} // namespace utility
