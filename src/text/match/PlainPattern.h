#pragma once

#include <optional>

namespace utility
{

/// The match for patterns without items, which most patterns are: same verdicts as the full rules,
/// without calls and memory. Nothing if the pattern, or a | in the text, needs the full rules.
std::optional<bool> MatchPlainPattern(const char16_t* pattern, const char16_t* text,
                                      bool caseSensitive);

} // namespace utility
