#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <array>

namespace utility
{

class CWnd;
struct CPathParts;

/// A path in classic form, kept in its four parts.
///
///     text                 drive  directory  file name  extension
///     "C:\dir\name.ext"    "C:"   "\dir\"    "name"     ".ext"
///     "sub/x"              ""     "sub/"     "x"        ""
///     ".config"            ""     ""         ""         ".config"
///
/// A value; operations on it ask no disk and do not fail. Texts longer than a part, or than 259
/// units together, are cut; whoever writes a file asks `WasCut` first. Comparisons take no regard
/// of case and take "/" and "\" as equal.
class UTILITY_CORE_API CFilePath
{
public:
    CFilePath() = default;
    CFilePath(const CString& path);
    CFilePath(const CFilePath& other) = default;
    virtual ~CFilePath() = default;
    CFilePath& operator=(const CFilePath& other) = default;

    operator CString() const { return GetPath(); }
    /// Valid until the next call that joins the path.
    operator const char16_t*() const;

    // Parts
    CString GetPath() const;
    CString GetDrive() const { return m_Drive.data(); }
    CString GetDirectory() const { return m_Directory.data(); }
    CString GetFileName() const { return m_FileName.data(); }
    CString GetExtension() const { return m_Extension.data(); }
    CString GetFileNameAndExtension() const { return GetFileName() + GetExtension(); }
    /// Without a closing separator.
    CString GetDriveAndDirectory() const;
    /// A text was too long for its part or for the whole path at some time.
    bool WasCut() const { return m_WasCut; }

    void SetPath(const CString& path);
    void SetDrive(const CString& drive);
    void SetDirectory(const CString& directory);
    void SetFileName(const CString& fileName);
    void SetExtension(const CString& extension);
    /// The drive is taken from the text; an empty text stays empty.
    void SetDriveAndDirectory(const CString& directory);
    void AddSubDirectory(const CString& directory);
    /// Appends a text of the string table to the file name; nothing if there is none.
    void AddFileNameSuffix(UINT stringId);
    /// True if the file name had to be changed.
    bool MakeLegal();
    void FullPath();
    bool IsUntitled() const;
    void SetUntitled();
    /// False, and `path` keeps its preset, if nothing is there.
    bool GetShortPath(CString& path) const;

    // Comparison
    bool EqualPath(const CString& path) const;
    bool EqualDrive(const CString& drive) const;
    bool EqualDirectory(const CString& directory) const;
    bool EqualFileName(const CString& fileName) const;
    /// With or without its dot.
    bool EqualExtension(const CString& extension) const;
    bool operator==(const CFilePath& other) const { return EqualPath(other.GetPath()); }
    bool operator==(const CString& path) const { return EqualPath(path); }

    // Paths as plain texts, of any length
    static const CString& GetDirectorySeparator();
    static UINT GetUntitledStringId();
    /// An empty text becomes "\".
    static void AddDirectorySeparator(CString& path);
    /// Cuts one "\"; a "/" stays.
    static void RemoveDirectorySeparator(CString& path);
    /// The current folder in front of a relative path, ".." folded as text.
    static CString FullPath(const CString& path);
    /// An empty path stays empty.
    static void SetExtension(CString& path, const CString& extension);
    /// No drive, and no separator in front.
    static bool IsRelativeDirectoryPath(const CString& path);
    /// The same, and tells the user if it is not.
    static bool CheckRelativeDirectoryPath(const CString& path);
    /// Puts the folder in front of a relative path.
    static void ApplyCurrentDir(CString& path, const CString& currentDir);
    /// The text before the first "\", drive and leading separators dropped; false if no "\" follows
    /// it.
    static bool FirstDirectory(const CString& path, CString& first);

    // Names: FilePathNames.cpp
    /// Takes out each of \/:*?"<>|
    static void Clean(CString& name);
    /// Puts `replacement` in their place; does nothing if it holds one itself.
    static void CleanWith(CString& name, const CString& replacement);
    /// Each of :/\?* becomes "_"; true if there was one.
    static bool MakeFileNameLegal(CString& name);
    /// Makes a path fit and writes it as a name with its folder: `board.pcb   [in "C:\...\Work"]`.
    ///
    /// It fits if it is not longer than `maxLength`, or, with a control, if the control has room
    /// for it.
    static void Squeeze(CString& text, int maxLength, CWnd* control);

    // On disk: FilePathDisk.cpp
    static bool DoesFileExist(const CString& path);
    static bool DoesFolderExist(const CString& path);
    static bool IsDirectory(const CString& path);
    static bool IsEmptyDirectory(const CString& path);
    /// Makes a folder and those above it; true if it is there. False for a lone name without a
    /// folder.
    static bool CreateDirectoryW(const CString& path);
    /// Asks the user before it makes a folder, and tells him if it cannot; `full` gets the whole
    /// path.
    static bool AskCreateDirectory(const CString& path, CString& full);
    /// Removes `path` and the folders above it as long as they are empty and below `root`.
    static void DeleteEmptyLeafNodes(const CString& path, const CString& root);

private:
    CPathParts GetParts() const;
    void SetParts(const CPathParts& parts);
    void MakePath() const;
    void Resplit();

    mutable std::array<char16_t, 260> m_FullPath{}; // rebuilt from the parts on demand
    std::array<char16_t, 3> m_Drive{};
    std::array<char16_t, 256> m_Directory{};
    std::array<char16_t, 256> m_FileName{};
    std::array<char16_t, 256> m_Extension{};
    mutable bool m_WasCut = false;
};

} // namespace utility
