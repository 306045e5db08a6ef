#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

namespace utility
{

/// What stands behind the handles of one kind. Handles are numbers that are never used again, so
/// that one whose record is gone finds nothing. User-interface thread.
template <typename THandle, typename TRecord>
class THandleTable
{
public:
    THandle Add(TRecord record)
    {
        const auto handle = reinterpret_cast<THandle>(++m_LastNumber);
        m_Records.emplace(handle, std::make_unique<TRecord>(std::move(record)));
        return handle;
    }
    void Remove(THandle handle) { m_Records.erase(handle); }
    /// Null if there is none; a record stays where it is until it is removed.
    TRecord* Find(THandle handle) const
    {
        const auto found = m_Records.find(handle);
        return found == m_Records.end() ? nullptr : found->second.get();
    }

private:
    std::unordered_map<THandle, std::unique_ptr<TRecord>> m_Records;
    std::uintptr_t m_LastNumber = 0;
};

} // namespace utility
