#pragma once

#include "platform/base/collections/TypedPtrList.h"

namespace utility
{

/// A pointer list `B` seen as a list of the pointer type `T`, whose items the holder may end all at
/// once.
template <typename B, typename T>
class CTypedItemPtrList : public CTypedPtrList<B, T>
{
public:
    using CTypedPtrList<B, T>::CTypedPtrList;

    /// Deletes every item, from the head, and empties the list. Each is out of the list before it
    /// goes.
    void DeleteItems()
    {
        while (!this->IsEmpty())
            delete this->RemoveHead();
    }
};

} // namespace utility
