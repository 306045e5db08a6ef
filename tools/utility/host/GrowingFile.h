#pragma once

#include "platform/base/String.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileStamp.h"

#include <string>

namespace utility
{

/// Reads a file that others write to as far as it has come, also when they begin it anew: cut,
/// removed, renamed or replaced by another.
///
/// The file that was renamed or replaced is read to its end first, since it is kept open.
class CGrowingFile
{
public:
    explicit CGrowingFile(const CString& path) : m_Path(path) {}

    /// Appends what has come since the last call; true if a part of it belongs to a file begun
    /// anew. A file that is not there, or not to be opened, adds nothing. Throws CFileException if
    /// reading fails.
    bool ReadNew(std::string& bytes);

private:
    bool IsOther() const;
    bool OpenPresent();
    bool ReadRest(std::string& bytes);

    CString m_Path;
    CFile m_File;
    CFileStamp m_Opened; // tells which file is open; its size and time are old
};

} // namespace utility
