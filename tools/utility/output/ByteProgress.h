#pragma once

#include "platform/base/String.h"

#include <cstdint>

namespace utility
{

/// A progress bar over bytes that goes with its scope.
class CByteProgress
{
public:
    CByteProgress(const CString& title, std::uint64_t total);
    ~CByteProgress() { End(); }
    CByteProgress(const CByteProgress&) = delete;
    CByteProgress& operator=(const CByteProgress&) = delete;

    void Add(std::uint64_t bytes);

    /// Takes the bar away before a message; a later step brings it back.
    void End();

private:
    CString m_Title;
    std::uint64_t m_Total;
    std::uint64_t m_Done = 0;
    bool m_IsShown = false;
};

} // namespace utility
