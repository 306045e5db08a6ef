#pragma once

#include <unistd.h>
#include <utility>

namespace utility
{

/// Owns an open descriptor of the system.
class CDescriptor
{
public:
    CDescriptor() = default;
    explicit CDescriptor(int number) : m_Number(number) {}
    ~CDescriptor() { Close(); }
    CDescriptor(CDescriptor&& other) noexcept : m_Number(std::exchange(other.m_Number, -1)) {}
    CDescriptor& operator=(CDescriptor&& other) noexcept
    {
        if (this != &other)
        {
            Close();
            m_Number = std::exchange(other.m_Number, -1);
        }
        return *this;
    }

    explicit operator bool() const { return m_Number >= 0; }
    int Get() const { return m_Number; }

    /// What the system says to closing it; 0 if there was nothing open.
    int Close() { return m_Number < 0 ? 0 : ::close(std::exchange(m_Number, -1)); }

private:
    int m_Number = -1;
};

} // namespace utility
