#pragma once

#include "platform/base/Types.h"

namespace utility
{

/// A date and time as database drivers carry it, without a zone.
struct TIMESTAMP_STRUCT
{
    std::int16_t year;
    std::uint16_t month;
    std::uint16_t day;
    std::uint16_t hour;
    std::uint16_t minute;
    std::uint16_t second;
    std::uint32_t fraction; // nanoseconds

    constexpr bool operator==(const TIMESTAMP_STRUCT&) const = default;
};

} // namespace utility
