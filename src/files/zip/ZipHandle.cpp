#include "files/zip/ZipHandle.h"

namespace utility
{

bool IsZipHandleU(HZIP zip)
{
    return zip && zip->m_Kind == EZipKind::Read;
}

bool IsZipHandleZ(HZIP zip)
{
    return zip && zip->m_Kind == EZipKind::Made;
}

} // namespace utility
