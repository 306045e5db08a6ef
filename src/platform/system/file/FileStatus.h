#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/time/Time.h"

#include <cstdint>

namespace utility
{

/// What the system knows of a file or folder.
class UTILITY_CORE_API CFileStatus
{
public:
    // Bits of m_attribute
    static constexpr DWORD readOnly = 0x1; // no write bit at all, or this user may not write
    static constexpr DWORD hidden = 0x2;   // the name begins with a dot
    static constexpr DWORD system = 0x4;   // never set here
    static constexpr DWORD directory = 0x10;
    static constexpr DWORD archive = 0x20; // never set here

    bool IsReadOnly() const { return (m_attribute & readOnly) != 0; }
    bool IsDirectory() const { return (m_attribute & directory) != 0; }

    CTime m_ctime; // of creation, or of the last change where the disk keeps none
    CTime m_mtime;
    CTime m_atime;
    std::int64_t m_size = 0; // bytes; 0 for a folder
    DWORD m_attribute = 0;
    CString m_szFullName; // classic form
};

} // namespace utility
