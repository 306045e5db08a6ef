#include "platform/backend/sqlite/HiveCache.h"

#include <mutex>

namespace utility
{

namespace
{

// A whole suite's settings are some hundred kilobytes; beyond this the cache begins anew.
constexpr std::size_t SIZE_LIMIT = 16 * 1024 * 1024;
constexpr std::size_t ENTRY_COST = 128;

} // namespace

CHiveCache::EFound CHiveCache::FindKey(std::string_view path, std::uint64_t generation) const
{
    const std::shared_lock lock(m_Lock);
    if (m_Generation != generation)
        return EFound::Unknown;
    const auto key = m_Keys.find(path);
    return key == m_Keys.end() ? EFound::Unknown : key->second.m_Found;
}

bool CHiveCache::BeginStore(std::uint64_t generation, std::size_t size)
{
    // Generations only rise: an older one was read before a change that is known by now.
    if (generation < m_Generation)
        return false;
    if (generation > m_Generation || m_Size > SIZE_LIMIT)
    {
        m_Keys.clear();
        m_Size = 0;
        m_Generation = generation;
    }
    m_Size += size + ENTRY_COST;
    return true;
}

void CHiveCache::StoreKey(const std::string& path, bool there, std::uint64_t generation)
{
    const std::unique_lock lock(m_Lock);
    if (BeginStore(generation, path.size()))
        m_Keys[path].m_Found = there ? EFound::There : EFound::Absent;
}

void CHiveCache::StoreValue(const std::string& path, const std::string& name,
                            std::optional<CHiveValue> value, std::uint64_t generation)
{
    const std::unique_lock lock(m_Lock);
    const std::size_t size = value ? value->m_Data.size() : 0;
    if (BeginStore(generation, path.size() + name.size() + size))
        m_Keys[path].m_Values[name] = std::move(value);
}

void CHiveCache::Carry(const std::vector<CChange>& changes, std::uint64_t before,
                       std::uint64_t after)
{
    const std::unique_lock lock(m_Lock);
    if (before == 0 || after == 0 || m_Generation != before)
        return;
    for (const CChange& change : changes)
    {
        const auto key = m_Keys.find(change.m_Path);
        if (key == m_Keys.end())
            continue;
        if (change.m_Name)
            key->second.m_Values.erase(*change.m_Name);
        else
            m_Keys.erase(key);
    }
    m_Generation = after;
}

} // namespace utility
