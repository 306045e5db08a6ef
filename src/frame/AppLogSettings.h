#pragma once

namespace utility
{

/// Where the trace log's settings stand, below the application's key; `CAppLog` tells their
/// meaning.
constexpr char16_t LOG_SETTINGS_KEY[] = u"Application";
constexpr char16_t LOG_SWITCH[] = u"Logging";
constexpr char16_t LOG_CONTEXTS[] = u"LoggingContext";
constexpr char16_t LOG_DISCARD_REPEATS[] = u"LoggingDiscardRepeats";

} // namespace utility
