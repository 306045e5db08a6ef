#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <cstdint>
#include <memory>

namespace utility
{

class CTime;

/// Walks the entries of one folder whose names match a pattern of `*` and `?`, without regard to
/// case.
///
///     CFileFind find;
///     bool more = find.FindFile(u"\\lib\\*.pcb");
///     while (more)
///     {
///         more = find.FindNextFile(); // false on the last entry, which is there to be asked all
///         the same Use(find.GetFilePath());
///     }
///
/// Entries come in folded name order, "." and ".." and hidden ones too; "*.*" matches every name.
/// The folder is read once, by FindFile, so deleting entries during the walk is safe. A link is
/// described as what it leads to, but is no folder. Can be derived from.
class UTILITY_CORE_API CFileFind
{
public:
    CFileFind();
    virtual ~CFileFind();
    CFileFind(const CFileFind&) = delete;
    CFileFind& operator=(const CFileFind&) = delete;

    /// False, with the last error, if nothing matches (2) or the folder cannot be read. Empty means
    /// "*.*".
    [[nodiscard]] virtual bool FindFile(const char16_t* pattern);
    /// Steps to the first entry, then to the next; false when there is none behind it.
    virtual bool FindNextFile();
    void Close();

    // The present entry
    virtual CString GetFileName() const;
    virtual CString GetFilePath() const;
    /// The name without its extension.
    virtual CString GetFileTitle() const;
    virtual bool IsDots() const;
    virtual bool IsDirectory() const;
    bool IsReadOnly() const;
    std::int64_t GetLength() const;
    bool GetLastWriteTime(CTime& time) const;

private:
    struct CBackend; // platform/backend/posix/file/FileFind.cpp
    std::unique_ptr<CBackend> m_Backend;
};

} // namespace utility
