#pragma once

#include <string>
#include <string_view>

namespace utility
{

/// One folder out of the desktop's list of user folders ("user-dirs.dirs"): lines
/// NAME="$HOME/Documents" or with an absolute path, `\` before a character that is meant as such.
/// Empty if the list does not name it soundly.
std::string FindUserFolder(std::string_view list, std::string_view name, const std::string& home);

} // namespace utility
