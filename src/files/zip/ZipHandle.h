#pragma once

#include "files/zip/ZipResult.h"
#include "platform/base/Export.h"

#include <new>

namespace utility
{

enum class EZipKind : std::uint32_t
{
    Read = 1,
    Made = 2
};

/// What an HZIP points to: the kind, and its CZipReader or CZipWriter.
struct ZipRecord
{
    EZipKind m_Kind;
    void* m_Worker;
};

/// False for null too.
UTILITY_CORE_API bool IsZipHandleU(HZIP zip);
UTILITY_CORE_API bool IsZipHandleZ(HZIP zip);

/// Lets `use` work with a handle's worker; the code why not, or its result.
template <typename TWorker, typename TUse>
ZRESULT UseZip(HZIP zip, EZipKind kind, TUse use)
{
    if (!zip)
        return ZIP_ARGUMENTS;
    if (zip->m_Kind != kind)
        return ZIP_WRONG_KIND;
    try
    {
        return use(*static_cast<TWorker*>(zip->m_Worker));
    }
    catch (const std::bad_alloc&)
    {
        return ZIP_NO_MEMORY;
    }
}

} // namespace utility
