#pragma once

#include <string>
#include <string_view>

namespace utility
{

/// Form text laid out anew: a form on its own line below its parent's, two blanks a level, its
/// values beside its name. Every token stays as it is. Input is sound UTF-8.
std::string LayOutForms(std::string_view text, std::string_view lineEnd);

} // namespace utility
