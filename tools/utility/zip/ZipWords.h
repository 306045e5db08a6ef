#pragma once

#include "files/zip/ZipOpen.h"

namespace utility
{

/// What the tool says of a code of the reading side: what exactly is wrong with the archive or the
/// entry where the code alone leaves it open, the system's reason where there is one.
CString ZipReadWords(ZRESULT code);

/// The same of an entry; a method or encryption that cannot be read is named.
CString ZipEntryWords(ZRESULT code, const ZIPENTRYINFO& info);

/// The same of the making side.
CString ZipMadeWords(ZRESULT code);

/// "deflated", "method 12 (bzip2)" ... and whether it is encrypted.
CString ZipMethodWords(const ZIPENTRYINFO& info);

} // namespace utility
