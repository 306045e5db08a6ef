#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "text/SortedList.h"

#include <cstdint>

namespace utility
{

/// One copy found on disk.
struct UTILITY_CORE_API CBackupFileInfo
{
    virtual ~CBackupFileInfo() = default;

    CString m_Path;
    std::int64_t m_Size = 0;         // bytes
    std::int64_t m_Time = 0;         // of the last change, seconds since 1970
    std::uint32_t m_Nanoseconds = 0; // behind that: copies may be made within one second
    CString m_Before;                // the whole path up to the number
    CString m_After;                 // what stands behind it, with the extension
    int m_Number = -1;               // -1: none
};

/// The copies of one list; frees them.
class UTILITY_CORE_API CBackupFileList : public CSortedList
{
public:
    /// The oldest first; of equal times the one met first.
    CBackupFileList();
    ~CBackupFileList();
    CBackupFileList(const CBackupFileList&) = delete;
    CBackupFileList& operator=(const CBackupFileList&) = delete;
};

} // namespace utility
