#pragma once

#include "platform/base/String.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace utility
{

/// An empty folder of a test's own, removed with all in it at the end of its scope.
///
/// Names may hold folders ("sub\\a.txt"), which are made as needed; they are taken literally, never
/// case-blind. Whatever cannot be done throws, so that a test does not go on without its files.
class CTemporaryFolder
{
public:
    CTemporaryFolder();
    ~CTemporaryFolder();
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;

    /// Classic form without a closing separator, and the same for other programs.
    CString GetPath() const;
    const std::filesystem::path& GetNativePath() const { return m_Folder; }

    /// The classic path of an entry, whether it is there or not.
    CString PathOf(const CString& name) const;

    /// Makes or replaces a file and returns its classic path.
    CString MakeFile(const CString& name, std::string_view bytes = {}) const;
    CString MakeFolder(const CString& name) const;

    /// All bytes of a file.
    std::string Read(const CString& name) const;
    bool Exists(const CString& name) const;

    /// The names of all entries below, in byte order, folders with a closing "/".
    std::vector<std::string> List() const;

private:
    std::filesystem::path NativeOf(const CString& name) const;

    std::filesystem::path m_Folder;
};

} // namespace utility
