#pragma once

#include "platform/base/time/FileTime.h"

#include <cstdint>
#include <optional>

namespace utility
{

/// The three times of a file.
struct CZipTimes
{
    FILETIME m_Modified{};
    FILETIME m_Accessed{};
    FILETIME m_Created{};
};

/// Times as the extra field "UT" holds them: seconds since 1970, each there or not.
struct CZipUnixTimes
{
    std::optional<std::int32_t> m_Modified;
    std::optional<std::int32_t> m_Accessed;
    std::optional<std::int32_t> m_Created;
};

/// Date and time in the two 16-bit fields of a header, the date in the high half: local time,
/// rounded down to 2 seconds and held within 1980 to 2107.
std::uint32_t DosTimeOf(const FILETIME& time);
/// A date that does not exist is the first that can be told.
FILETIME FileTimeOfDos(std::uint32_t dosTime);

/// Held within the 32 bits that the field has.
std::int32_t UnixTimeOf(const FILETIME& time);
FILETIME FileTimeOfUnix(std::int64_t seconds);

/// An entry's times from all that its archive tells: the local header's, else the directory's
/// modification time, else the date of the header. A time that is nowhere is the modification time.
CZipTimes ChooseZipTimes(const CZipUnixTimes& local, const CZipUnixTimes& central,
                         std::uint32_t dosTime);

} // namespace utility
