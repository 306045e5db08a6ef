#pragma once

#include <string_view>

namespace utility
{

constexpr std::size_t LONGEST_HTML_ENTITY_NAME = 8;

/// The character of a named entity, case counting; 0 for an unknown name. Internal to text.
char16_t FindHtmlEntity(std::u16string_view name);

} // namespace utility
