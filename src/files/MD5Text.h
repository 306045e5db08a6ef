#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

class CFilePath;

/// The MD5 digest of a text, in upper case: of the low byte of each unit, without a code page, so
/// U+0161 counts as "a".
UTILITY_CORE_API CString GetMD5(const CString& text);

/// The MD5 digest of a file, in upper case; raises `CFileException` if it cannot be read.
UTILITY_CORE_API CString GetMD5(const CFilePath& path);

} // namespace utility
