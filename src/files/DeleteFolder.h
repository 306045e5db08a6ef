#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CString;

/// Deletes a folder with all in it, read-only files too if `force` is on. Links are deleted, never
/// followed.
///
///     0   all is gone
///     1   something could not be deleted; the rest is gone, the folder is not
///     2   no folder, or one in it could not be searched: nothing of that one is deleted
UTILITY_CORE_API int DeleteFolder(const CString& path, bool force);

} // namespace utility
