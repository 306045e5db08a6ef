#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// May a file be written, and what to do about it. All are false with the last error recorded, but
/// where told.

/// An absent file counts as writeable, one in an absent folder does not
/// (IDS_CANNOT_TELL_READ_ONLY).
UTILITY_CORE_API bool IsFileWriteable(const CString& path);

/// Asks the user before the read-only mark of a file is taken off.
UTILITY_CORE_API bool MakeFileWriteable(const CString& path);

/// Puts bits of `CFileStatus::m_attribute` in or out; only the read-only bit can be changed.
UTILITY_CORE_API bool SetFileAttrib(const CString& path, DWORD attribute, bool set);
UTILITY_CORE_API bool SetFileReadOnly(const CString& path, bool readOnly);

/// Deletes a file even if it is read-only.
UTILITY_CORE_API bool ForceDeleteFile(const CString& path);

} // namespace utility
