#pragma once

#include "platform/backend/sqlite/HiveValue.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace utility
{

/// What was read of one store, absent keys and values too, good for one generation of it. Any
/// thread.
class CHiveCache
{
public:
    /// What a commit changed: a key, with all its values, or one value of it.
    struct CChange
    {
        std::string m_Path;
        std::optional<std::string> m_Name;
    };

    enum class EFound
    {
        Unknown,
        Absent,
        There
    };

    EFound FindKey(std::string_view path, std::uint64_t generation) const;
    /// `take` sees the value under the cache's lock.
    template <typename TTake>
    EFound FindValue(std::string_view path, std::string_view name, std::uint64_t generation,
                     TTake take) const;

    void StoreKey(const std::string& path, bool there, std::uint64_t generation);
    /// No value: it is absent.
    void StoreValue(const std::string& path, const std::string& name,
                    std::optional<CHiveValue> value, std::uint64_t generation);

    /// Carries what did not change over a commit of this process.
    void Carry(const std::vector<CChange>& changes, std::uint64_t before, std::uint64_t after);

    /// For a fork, which must not find the lock taken in the child.
    void Lock() { m_Lock.lock(); }
    void Unlock() { m_Lock.unlock(); }
    /// In the child, whose only thread is not the one that locked: the system tells them apart.
    void RenewLock() { std::construct_at(&m_Lock); }

private:
    struct CHash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const
        {
            return std::hash<std::string_view>()(text);
        }
    };
    template <typename T>
    using CMapByText = std::unordered_map<std::string, T, CHash, std::equal_to<>>;

    struct CKeyEntry
    {
        EFound m_Found = EFound::Unknown;
        CMapByText<std::optional<CHiveValue>> m_Values;
    };

    bool BeginStore(std::uint64_t generation, std::size_t size);

    mutable std::shared_mutex m_Lock;
    std::uint64_t m_Generation = 0;
    std::size_t m_Size = 0; // about, in bytes
    CMapByText<CKeyEntry> m_Keys;
};

template <typename TTake>
CHiveCache::EFound CHiveCache::FindValue(std::string_view path, std::string_view name,
                                         std::uint64_t generation, TTake take) const
{
    const std::shared_lock lock(m_Lock);
    if (m_Generation != generation)
        return EFound::Unknown;
    const auto key = m_Keys.find(path);
    if (key == m_Keys.end())
        return EFound::Unknown;
    const auto value = key->second.m_Values.find(name);
    if (value == key->second.m_Values.end())
        return EFound::Unknown;
    if (!value->second)
        return EFound::Absent;
    take(*value->second);
    return EFound::There;
}

} // namespace utility
