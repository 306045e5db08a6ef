#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// A module loaded while the program runs; null for none.
using HMODULE = void*;

/// Loads a module of that path, in classic form, with all that it needs; loaded again it is the
/// same one, counted. Null with the last error: 2 or 3 if there is no such file, 193 if it is no
/// module or lacks something that it needs.
[[nodiscard]] UTILITY_CORE_API HMODULE LoadLibraryW(const CString& path);

/// What the module shows by that name, until it is freed; null with the last error (127) if there
/// is none.
[[nodiscard]] UTILITY_CORE_API void* GetProcAddress(HMODULE module, const char* name);

/// Gives back one loading; false, with the last error (6), for null.
UTILITY_CORE_API bool FreeLibrary(HMODULE module);

} // namespace utility
