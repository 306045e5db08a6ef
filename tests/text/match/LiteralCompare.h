#pragma once

#include <string>

namespace utility
{

/// The order of names as it is laid down, step by step: slow, and kept apart from the library's own
/// reading of it.
int CompareLiterally(const std::u16string& a, const std::u16string& b, bool caseSensitive,
                     bool numbersByRun, bool numbersByValue);

} // namespace utility
