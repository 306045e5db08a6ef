#pragma once

#include "platform/base/String.h"

#include <cstdint>

namespace utility
{

/// A progress bar that goes with its scope. The bar tells how many rows pass a second.
class CRowProgress
{
public:
    CRowProgress(const CString& title, std::int64_t total);
    ~CRowProgress() { End(); }
    CRowProgress(const CRowProgress&) = delete;
    CRowProgress& operator=(const CRowProgress&) = delete;

    /// `done` counts towards the total, `rows` are those handled so far.
    void Step(std::int64_t done, std::int64_t rows);

    /// Takes the bar away before a message; a later step brings it back.
    void End();

private:
    CString m_Title;
    std::int64_t m_Total;
    std::uint64_t m_Start; // ms
};

/// Rows a second; those of less than a millisecond count as of one.
std::int64_t RowsPerSecond(std::int64_t rows, std::uint64_t milliseconds);

} // namespace utility
