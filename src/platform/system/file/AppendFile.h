#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace utility
{

/// A file that many writers append to, held open and yet as if opened for each write.
///
/// Before each write the file that bears the name is compared with the open one, so a file that
/// was deleted, renamed or begun anew is opened again. A write is one call to the system behind
/// whatever stands there, so writes of several processes never tear. One thread at a time.
class UTILITY_CORE_API CAppendFile
{
public:
    CAppendFile() = default;
    ~CAppendFile();
    CAppendFile(const CAppendFile&) = delete;
    CAppendFile& operator=(const CAppendFile&) = delete;

    /// The file to append to, in classic form; closes the one before.
    void SetPath(const CString& path);

    /// Makes the file if it is not there. False, with the last error, if not all could be written;
    /// then nothing of it is.
    bool Append(std::string_view bytes);

private:
    static constexpr int CLOSED = -1;

    bool MakeCurrent();
    void Close();

    CString m_Path;
    // Which file is open; platform/backend/posix/file/AppendFile.cpp
    int m_Descriptor = CLOSED;
    std::string m_DiskPath;
    std::uint64_t m_Device = 0;
    std::uint64_t m_Number = 0;
};

} // namespace utility
