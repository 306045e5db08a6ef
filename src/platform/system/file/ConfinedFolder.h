#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/time/FileTime.h"
#include "platform/system/file/FileCalls.h"

#include <cstdint>
#include <memory>

namespace utility
{

/// A folder and what is made below it, for names that come from outside: no link is followed on the
/// way, so nothing is made elsewhere. The folder itself may be reached by links.
///
/// Paths are relative, in classic form and with exact case, "/" taken for `\`; "." counts nothing,
/// ".." and a zero unit are refused with ERROR_INVALID_NAME. Whatever fails writes the thread's
/// last error. One thread.
class UTILITY_CORE_API CConfinedFolder
{
public:
    CConfinedFolder();
    ~CConfinedFolder();
    CConfinedFolder(const CConfinedFolder&) = delete;
    CConfinedFolder& operator=(const CConfinedFolder&) = delete;

    [[nodiscard]] bool Open(const char16_t* folder);

    /// What stands at a path; a link is `Other`, wherever it leads.
    EEntryKind GetKind(std::u16string_view path) const;

    /// Makes a folder and those above it; true if it is there.
    [[nodiscard]] bool MakeFolder(std::u16string_view path) const;

    /// Of a folder that is there; making something in it changes them again.
    [[nodiscard]] bool SetFolderTimes(std::u16string_view path, const FILETIME& accessed,
                                      const FILETIME& modified) const;

    /// Bytes that this user may still write there.
    std::uint64_t GetFreeSpace() const;

private:
    friend class CConfinedFile;
    struct CBackend; // platform/backend/posix/file/ConfinedFolder.cpp
    std::unique_ptr<CBackend> m_Backend;
};

/// A file below such a folder: written under a name of its own beside its place, which it takes by
/// `Commit`. Given up at the object's end if not committed.
class UTILITY_CORE_API CConfinedFile
{
public:
    CConfinedFile();
    ~CConfinedFile();
    CConfinedFile(const CConfinedFile&) = delete;
    CConfinedFile& operator=(const CConfinedFile&) = delete;

    /// Makes the empty file, and the folders above it.
    [[nodiscard]] bool Begin(const CConfinedFolder& folder, std::u16string_view path);

    /// For reading and writing, until the file is committed or given up.
    HANDLE GetHandle() const;

    /// Puts the file in its place. What stands there is replaced if wanted, a link like a file;
    /// else, and for a read-only file or a folder, the place stays as it is and the new file goes.
    [[nodiscard]] bool Commit(bool replaces, bool isReadOnly);
    void GiveUp();

private:
    struct CBackend; // platform/backend/posix/file/ConfinedFolder.cpp
    std::unique_ptr<CBackend> m_Backend;
};

} // namespace utility
