#pragma once

#include <string>

namespace utility
{

/// Folders of this user alone, in native form without a closing separator: mode 0700, owner
/// checked, made as needed. Empty if none can be had, with the last error.

/// For sockets and live windows: below $XDG_RUNTIME_DIR, else below the temporary folder of the
/// machine.
std::string GetRuntimeFolder();

/// For files that others shall neither read nor put there before us.
std::string GetPrivateTempFolder();

/// The user's home: $HOME, else what the user database says.
std::string GetHomeFolder();

/// An absolute folder from the environment, else the given one below the home.
std::string GetUserFolder(const char* variable, const char* belowHome);

/// Makes a folder and all above it with the user's mask; true if it is there.
bool MakeFolders(const std::string& folder);

} // namespace utility
