#pragma once

#include "platform/base/Types.h"

#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// Key paths and names inside the store: UTF-8, folded to lower case, components joined by one `\`.
///
/// All give false for a text that is no sound UTF-16: no store could give such a name back.

/// A whole name, separators and all.
[[nodiscard]] bool FoldName(std::u16string_view name, std::string& folded);

/// Puts a path behind another; separators that do not count are dropped.
[[nodiscard]] bool AppendFoldedPath(std::string& path, std::u16string_view tail);

/// The components of a path as they are spelled.
[[nodiscard]] bool SplitSpelledPath(std::u16string_view path, std::vector<std::string>& names);

/// The path less its last component.
std::string_view ParentOf(std::string_view path);

/// Null counts as the empty text.
inline std::u16string_view ViewOf(LPCWSTR text)
{
    return text ? std::u16string_view(text) : std::u16string_view();
}

} // namespace utility
