#pragma once

#include "platform/base/time/SystemTime.h"

#include <ctime>

namespace utility
{

/// The user's zone, as TZ names it at each call. Internal to platform; any thread.

/// False, and `local` keeps its preset, if the year fits none.
[[nodiscard]] bool LocalFromSeconds(std::int64_t seconds, std::tm& local);

/// Of a doubled hour the first; a skipped time as if the clock had not been put forward. Without
/// milliseconds. False, and `seconds` keeps its preset, for what is no date.
[[nodiscard]] bool SecondsFromLocal(const SYSTEMTIME& local, std::int64_t& seconds);

} // namespace utility
