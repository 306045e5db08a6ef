#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// A folder of the platform by its `CSIDL_` number (platform/system/KnownFolders.h), made if it is
/// not there; the program's own folder for a number that has none. Without a closing separator, up
/// to 260 units.
UTILITY_CORE_API CString GetDataFolderName(int folderId);

/// A folder below it for this product, or for `subFolder` if that is not empty; with a closing
/// separator.
UTILITY_CORE_API CString GetDataFolder(int folderId, const CString& subFolder);

} // namespace utility
