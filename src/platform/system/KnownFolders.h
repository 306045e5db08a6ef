#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

// Folder ids of the platform
constexpr int CSIDL_DESKTOP = 0;
constexpr int CSIDL_PERSONAL = 5; // documents
constexpr int CSIDL_MYDOCUMENTS = 12;
constexpr int CSIDL_DESKTOPDIRECTORY = 16;
constexpr int CSIDL_APPDATA = 26; // configuration
constexpr int CSIDL_LOCAL_APPDATA = 28;
constexpr int CSIDL_COMMON_APPDATA = 35;
constexpr int CSIDL_PROFILE = 40; // home
constexpr int CSIDL_COMMON_DOCUMENTS = 46;

/// A folder of the user or the machine in classic form, without a closing separator, made if
/// `create` is on.
///
///     0, 16    desktop         26  configuration    35  shared data    46  public
///     5, 12    documents       28  data             40  home
///
/// False, and `folder` keeps its preset, for other ids or if the folder cannot be made.
UTILITY_CORE_API bool SHGetSpecialFolderPathW(CString& folder, int id, bool create);

/// The user's own temporary folder, mode 0700 and owner checked, with a closing separator; empty if
/// none can be had.
UTILITY_CORE_API CString GetTempPathW();

/// Makes an empty file of a name that was free, "<prefix up to 3 units><number>.tmp"; false if it
/// cannot.
UTILITY_CORE_API bool GetTempFileNameW(const char16_t* folder, const char16_t* prefix,
                                       CString& file);

} // namespace utility
