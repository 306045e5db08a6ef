#pragma once

#include "platform/base/String.h"

namespace utility
{

/// Reads a file of form text (UTF-8, or UTF-16 with a mark) by the library's reader and prints its
/// tree: as indented lines, or as JSON, a list of forms {"name": ..., "items": [...]} in which a
/// value is a text and a child a form.
///
/// False, with the last error set, if the file cannot be opened. Memory follows the depth, not the
/// length.
bool PrintFormTree(const CString& path, bool json);

} // namespace utility
