#pragma once

#include "platform/base/Export.h"

#include <atomic>
#include <cstdint>

namespace utility
{

/// The head of a block that texts share: 16 bytes, right before the units and their terminator.
///
/// A text holds the address of the units alone, so it is one pointer wide. Whoever changes a block
/// must be its only holder. The block of the empty text is static: its count is negative, is never
/// touched and counts as shared.
class UTILITY_CORE_API CStringBuffer
{
public:
    /// Units of a new block with one holder, length 0 and room for `capacity` units and the
    /// terminator. Throws `std::bad_alloc` also for a capacity below 0.
    static char16_t* Allocate(int capacity);

    /// Units of the one empty block.
    static char16_t* GetEmpty() noexcept;

    static CStringBuffer* Of(char16_t* units) noexcept
    {
        return reinterpret_cast<CStringBuffer*>(units) - 1;
    }
    static const CStringBuffer* Of(const char16_t* units) noexcept
    {
        return reinterpret_cast<const CStringBuffer*>(units) - 1;
    }

    int GetLength() const noexcept { return m_Length; }
    int GetCapacity() const noexcept { return m_Capacity; }
    bool IsShared() const noexcept { return m_Count.load(std::memory_order_acquire) != 1; }

    /// Sets the length and writes the terminator; for the only holder, up to the capacity.
    void SetLength(int length) noexcept
    {
        m_Length = length;
        reinterpret_cast<char16_t*>(this + 1)[length] = 0;
    }

    void AddHolder() noexcept
    {
        if (m_Count.load(std::memory_order_relaxed) > 0)
            m_Count.fetch_add(1, std::memory_order_relaxed);
    }

    /// Frees the block with its last holder.
    void RemoveHolder() noexcept
    {
        const std::int32_t count = m_Count.load(std::memory_order_acquire);
        if (count < 0)
            return;
        // A block with one holder can get no second one meanwhile: the costly step is saved.
        if (count == 1 || m_Count.fetch_sub(1, std::memory_order_acq_rel) == 1)
            Free();
    }

private:
    struct CEmptyBlock;

    constexpr CStringBuffer(std::int32_t count, std::int32_t capacity) noexcept
        : m_Count(count),
          m_Capacity(capacity)
    {
    }
    void Free() noexcept;

    alignas(16) std::atomic<std::int32_t> m_Count; // negative: static
    std::int32_t m_Length = 0;
    std::int32_t m_Capacity;

    static CEmptyBlock m_Empty;
};

static_assert(sizeof(CStringBuffer) == 16);

struct UTILITY_CORE_API CStringBuffer::CEmptyBlock
{
    CStringBuffer m_Head;
    char16_t m_Units[1];
};

inline char16_t* CStringBuffer::GetEmpty() noexcept
{
    return m_Empty.m_Units;
}

} // namespace utility
