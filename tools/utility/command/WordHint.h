#pragma once

#include <string>
#include <vector>

namespace utility
{

/// The known word that was most likely meant by a wrong one; empty if none is near.
///
///     "serch"   search, match      "search"
///     "x"       search, match      ""
std::string NearestWord(const std::string& word, const std::vector<std::string>& known);

} // namespace utility
