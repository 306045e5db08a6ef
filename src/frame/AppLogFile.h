#pragma once

#include "platform/base/String.h"
#include "platform/system/file/AppendFile.h"

#include <mutex>
#include <string>
#include <string_view>

namespace utility
{

/// The file of the log: lines in UTF-8 with CR LF, each write one call to the system.
///
/// Held open, yet it behaves as if opened for each write. Any thread may write. Nothing is reported
/// and the last error stays: what cannot be written is dropped.
class CAppLogFile
{
public:
    /// The file to write from now on; it is opened, and made if need be, by the first write.
    void SetPath(const CString& path);

    /// Appends so many blanks and the text.
    void Write(int blanks, std::u16string_view text);

private:
    std::mutex m_Lock; // taken for one write
    CAppendFile m_File;
    std::string m_Bytes; // of the write under way; kept for its room
};

} // namespace utility
