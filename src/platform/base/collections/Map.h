#pragma once

#include "platform/base/Types.h"
#include "platform/base/collections/BoundsCheck.h"
#include "platform/base/collections/Position.h"

#include <unordered_map>
#include <utility>

namespace utility
{

/// A hash map that is walked in the order in which its keys were first set.
///
/// Keys need `==` and `std::hash`. References stay good until their key is removed. While a map is
/// walked, the key just given may be removed and values may be set. A value: copies are deep.
template <typename K, typename KA, typename V, typename VA>
class CMap
{
public:
    /// The block size is taken and ignored.
    explicit CMap(int /*blockSize*/ = 10) {}
    CMap(const CMap& other) { Append(other); }
    CMap(CMap&& other) noexcept { Swap(other); }
    CMap& operator=(CMap other) noexcept
    {
        Swap(other);
        return *this;
    }

    int GetCount() const { return static_cast<int>(m_Entries.size()); }
    int GetSize() const { return GetCount(); }
    bool IsEmpty() const { return m_Entries.empty(); }

    /// Accepted, without effect: the table grows by itself.
    void InitHashTable(UINT /*buckets*/, bool /*allocateNow*/ = true) {}

    /// False, and `value` keeps its preset, if the key is absent.
    bool Lookup(KA key, V& value) const;
    /// The value of a key, made by default if the key is absent.
    V& operator[](KA key) { return Entry(key).second.m_Value; }
    void SetAt(KA key, VA value) { Entry(key).second.m_Value = value; }
    /// False if the key is absent.
    bool RemoveKey(KA key);
    void RemoveAll();

    // Walking: the position moves on before the call ends, and is null behind the last key
    POSITION GetStartPosition() const { return ToPosition(m_First); }
    void GetNextAssoc(POSITION& position, K& key, V& value) const;

private:
    struct CNode;
    using CEntry = std::pair<const K, CNode>;
    struct CNode
    {
        V m_Value{};
        CEntry* m_Prev = nullptr;
        CEntry* m_Next = nullptr;
    };

    static POSITION ToPosition(CEntry* entry) { return reinterpret_cast<POSITION>(entry); }

    CEntry& Entry(KA key);
    void Append(const CMap& other);
    void Swap(CMap& other) noexcept
    {
        m_Entries.swap(other.m_Entries);
        std::swap(m_First, other.m_First);
        std::swap(m_Last, other.m_Last);
    }

    std::unordered_map<K, CNode> m_Entries;
    CEntry* m_First = nullptr; // entries never move, so they are chained by address
    CEntry* m_Last = nullptr;
};

template <typename K, typename KA, typename V, typename VA>
bool CMap<K, KA, V, VA>::Lookup(KA key, V& value) const
{
    const auto found = m_Entries.find(key);
    if (found == m_Entries.end())
        return false;

    value = found->second.m_Value;
    return true;
}

template <typename K, typename KA, typename V, typename VA>
typename CMap<K, KA, V, VA>::CEntry& CMap<K, KA, V, VA>::Entry(KA key)
{
    const auto [place, isNew] = m_Entries.try_emplace(K(key));
    CEntry& entry = *place;
    if (isNew)
    {
        entry.second.m_Prev = m_Last;
        (m_Last ? m_Last->second.m_Next : m_First) = &entry;
        m_Last = &entry;
    }
    return entry;
}

template <typename K, typename KA, typename V, typename VA>
bool CMap<K, KA, V, VA>::RemoveKey(KA key)
{
    const auto found = m_Entries.find(key);
    if (found == m_Entries.end())
        return false;

    const CNode& node = found->second;
    (node.m_Prev ? node.m_Prev->second.m_Next : m_First) = node.m_Next;
    (node.m_Next ? node.m_Next->second.m_Prev : m_Last) = node.m_Prev;
    m_Entries.erase(found);
    return true;
}

template <typename K, typename KA, typename V, typename VA>
void CMap<K, KA, V, VA>::RemoveAll()
{
    m_Entries.clear();
    m_First = nullptr;
    m_Last = nullptr;
}

template <typename K, typename KA, typename V, typename VA>
void CMap<K, KA, V, VA>::GetNextAssoc(POSITION& position, K& key, V& value) const
{
    CheckBounds(position != nullptr);
    const CEntry* entry = reinterpret_cast<const CEntry*>(position);
    position = ToPosition(entry->second.m_Next);
    key = entry->first;
    value = entry->second.m_Value;
}

template <typename K, typename KA, typename V, typename VA>
void CMap<K, KA, V, VA>::Append(const CMap& other)
{
    for (const CEntry* entry = other.m_First; entry; entry = entry->second.m_Next)
        Entry(entry->first).second.m_Value = entry->second.m_Value;
}

} // namespace utility
