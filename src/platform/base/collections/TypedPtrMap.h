#pragma once

#include "platform/base/collections/Position.h"

namespace utility
{

/// A pointer map `B` (`CMapStringToPtr`) with keys `K`, seen as a map to the pointer type `V`.
template <typename B, typename K, typename V>
class CTypedPtrMap : public B
{
public:
    using B::B;

    bool Lookup(const K& key, V& value) const;
    /// The value of a key; null if the key is absent.
    V operator[](const K& key) const;
    void SetAt(const K& key, V value) { B::SetAt(key, value); }
    void GetNextAssoc(POSITION& position, K& key, V& value) const;
};

template <typename B, typename K, typename V>
bool CTypedPtrMap<B, K, V>::Lookup(const K& key, V& value) const
{
    void* pointer = nullptr;
    if (!B::Lookup(key, pointer))
        return false;

    value = static_cast<V>(pointer);
    return true;
}

template <typename B, typename K, typename V>
V CTypedPtrMap<B, K, V>::operator[](const K& key) const
{
    V value = nullptr;
    Lookup(key, value);
    return value;
}

template <typename B, typename K, typename V>
void CTypedPtrMap<B, K, V>::GetNextAssoc(POSITION& position, K& key, V& value) const
{
    void* pointer = nullptr;
    B::GetNextAssoc(position, key, pointer);
    value = static_cast<V>(pointer);
}

} // namespace utility
