#pragma once

#include "text/match/WildcardPattern.h"

namespace utility
{

/// The pattern made ready for matching, if this thread has used it lately or it is short enough to
/// be kept; else null. Valid until the thread's next call.
const CWildcardPattern* GetRecentPattern(const char16_t* pattern, bool caseSensitive);

} // namespace utility
