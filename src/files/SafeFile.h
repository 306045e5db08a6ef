#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <string_view>

namespace utility
{

/// Replaces a file as a whole: what is written goes beside the target and takes its place by
/// `Commit`, synced.
///
///     CSafeFile safe;
///     if (!safe.Begin(path))
///         return false;
///     CStdioFileEx file(safe.GetWrittenPath(), CFile::modeCreate | CFile::modeWrite);
///     ...
///     file.Close();
///     return safe.Commit();
///
/// Until then, and whatever fails, the old file is there, whole. The new one gets its mode and,
/// where permitted, its owner; a symbolic link stays and what it leads to is replaced. Given up at
/// the object's end if not committed.
class UTILITY_CORE_API CSafeFile
{
public:
    CSafeFile() = default;
    ~CSafeFile();
    CSafeFile(const CSafeFile&) = delete;
    CSafeFile& operator=(const CSafeFile&) = delete;

    /// Makes the empty file to write to. False with the last error: IDS_FILE_READ_ONLY for a
    /// read-only target, before anything is written, IDS_CANNOT_TELL_READ_ONLY, or the system's
    /// code.
    [[nodiscard]] bool Begin(const CString& target);

    /// What is to be opened, written and closed before `Commit`; empty while nothing was begun.
    const CString& GetWrittenPath() const { return m_Written; }

    /// False, with the system's code, if the target could not be replaced; it is then as it was.
    [[nodiscard]] bool Commit();
    void GiveUp();

    /// All steps for content that is at hand.
    [[nodiscard]] static bool Write(const CString& target, std::string_view bytes);

private:
    CString m_Written;
    CString m_Replaced; // where the target's links lead
};

} // namespace utility
