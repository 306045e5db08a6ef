#pragma once

#include "platform/base/Types.h"

namespace utility
{

/// A point in time: 100 ns steps since 1 January 1601 in UTC, as two halves of a 64-bit count.
struct FILETIME
{
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;

    constexpr bool operator==(const FILETIME&) const = default;
};

constexpr std::int64_t FILETIME_PER_MILLISECOND = 10'000;
constexpr std::int64_t FILETIME_PER_SECOND = 10'000'000;
constexpr std::int64_t FILETIME_PER_DAY = 86'400 * FILETIME_PER_SECOND;
/// The count at 1 January 1970, 00:00 UTC.
constexpr std::int64_t FILETIME_OF_1970 = 116'444'736'000'000'000;

constexpr std::int64_t FileTimeToCount(const FILETIME& time)
{
    return static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
}

constexpr FILETIME CountToFileTime(std::int64_t count)
{
    const auto bits = static_cast<std::uint64_t>(count);
    return {static_cast<DWORD>(bits), static_cast<DWORD>(bits >> 32)};
}

} // namespace utility
