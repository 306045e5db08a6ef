#pragma once

#include "platform/system/process/Handle.h"

#include <utility>

namespace utility
{

/// A handle that is closed with its owner. Moved, not copied; one thread at a time.
class COwnHandle
{
public:
    COwnHandle() = default;
    /// Takes the handle over; INVALID_HANDLE_VALUE and null are none.
    explicit COwnHandle(HANDLE handle) : m_Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle)
    {
    }
    ~COwnHandle()
    {
        if (m_Handle)
            CloseHandle(m_Handle);
    }
    COwnHandle(COwnHandle&& other) noexcept : m_Handle(other.Release()) {}
    COwnHandle& operator=(COwnHandle&& other) noexcept
    {
        std::swap(m_Handle, other.m_Handle);
        return *this;
    }

    /// Another handle for what the caller's stands for; none if that is no handle.
    static COwnHandle CopyOf(HANDLE handle)
    {
        COwnHandle copy;
        (void)DuplicateHandle(handle, copy.m_Handle); // leaves the preset if it fails
        return copy;
    }

    explicit operator bool() const { return m_Handle != nullptr; }
    HANDLE Get() const { return m_Handle; }

    /// Gives the handle to the caller, who closes it.
    [[nodiscard]] HANDLE Release() { return std::exchange(m_Handle, nullptr); }

private:
    HANDLE m_Handle = nullptr;
};

} // namespace utility
