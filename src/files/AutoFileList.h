#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/StringHash.h"
#include "platform/base/collections/List.h"

#include <functional>
#include <unordered_map>

namespace utility
{

struct CRuntimeClass;

/// Folders that a user has chosen and the files of one kind that they hold, kept in the settings.
///
/// Folders stand as they were given, variables and all, without a closing "\"; those that the
/// settings disable are not searched. Files stand folder by folder, sorted within each. Texts are
/// compared without regard to case, and each stands once. One thread.
///
/// Walkers give an element and set the position to it, null at the end:
///
///     POSITION position;
///     for (CString file = list.First(position); position; file = list.Next(position))
class UTILITY_CORE_API CAutoFileList
{
public:
    using CTexts = CList<CString, const CString&>;

    CAutoFileList() = default;
    virtual ~CAutoFileList() = default;
    CAutoFileList(const CAutoFileList&) = delete;
    CAutoFileList& operator=(const CAutoFileList&) = delete;

    /// Both may be empty: all extensions' files are those without one, and no path stores nothing.
    void Init(const CRuntimeClass* documentClass, const CString& extension,
              const CString& settingsPath);

    // Files
    /// False if it is there already.
    bool Add(const CString& file);
    bool Delete(const CString& file);
    void Empty();
    /// Null if it is not there; with `expand` variables are expanded before texts are compared.
    POSITION Find(const CString& file, bool expand) const;
    int GetCount() const { return m_Files.GetCount(); }
    CString First(POSITION& position) const;
    CString Next(POSITION& position) const;
    CString FirstNonVault(POSITION& position) const;
    CString NextNonVault(POSITION& position) const;
    /// The path of the first file of that name, or of that path; empty if there is none.
    CString GetFullFileName(const CString& name) const;
    /// The same for a name to which the list's extension is added.
    CString GetFullFileNameWithExtension(const CString& name) const;

    // Folders
    bool AddDir(const CString& folder);
    /// Before the folder at an index; at the end if there is none.
    bool InsertDir(const CString& folder, int index);
    bool DeleteDir(const CString& folder);
    void EmptyDirs();
    POSITION FindDir(const CString& folder, bool expand) const;
    int GetDirCount() const { return m_Dirs.GetCount(); }
    void CopyDirs(const CAutoFileList* source);
    CString FirstDir(POSITION& position) const;
    CString NextDir(POSITION& position) const;
    CString FirstEnabledDir(POSITION& position) const;
    CString NextEnabledDir(POSITION& position) const;
    CString FirstEnabledNonVaultDir(POSITION& position) const;
    CString NextEnabledNonVaultDir(POSITION& position) const;

    // Following the disk: AutoFileListRefresh.cpp
    /// Finds the files anew, if folders are searched. Of a folder that has vanished or cannot be
    /// read the files are dropped or, for a share that comes back, kept. True if files changed.
    bool RefreshFiles(bool dropVanished);
    /// Takes what the settings hold, and follows the disk without dropping.
    void Refresh();

    // Settings: AutoFileListStore.cpp
    void LoadFromRegistry();
    /// One step: all of it is stored or nothing. False without a settings path. A text beyond 1023
    /// units, which would not read back, is left out.
    bool SaveToRegistry() const;
    /// Follows the disk without dropping, and stores the result.
    bool Save();
    bool IsEnabledDir(const CString& folder) const;
    /// Whether no line of that list of disabled folders names the folder.
    static bool CheckIfFolderEnabled(const CString& folder, const CString& valueName);
    /// The key of all lists of disabled folders, and the value in it for this list.
    static CString GetDisabledFoldersRegistry();
    CString GetDisabledFoldersValue() const;
    /// Names that value where the settings path should not.
    void SetQualifier(const CString& qualifier) { m_Qualifier = qualifier; }

    // Walkers and the vault: AutoFileListWalk.cpp. The vault is no folder of the disk, and empty
    // where there is none
    static CString GetVaultNameString();
    /// Puts the vault first among the folders, if it is allowed, or takes it out.
    void RefreshVaultInDirs(bool wanted);
    static bool IsInVault(const CString& text);

    // Properties
    const CString& GetExtension() const { return m_Extension; }
    /// With or without its dot.
    void SetExtension(const CString& extension);
    const CRuntimeClass* GetDocumentClass() const { return m_DocumentClass; }
    /// Folders are searched; otherwise the files are what was added. On at first.
    bool GetSearchDirs() const { return m_SearchDirs; }
    void SetSearchDirs(bool search) { m_SearchDirs = search; }
    /// Files that are found keep the variables of their folder. Off at first.
    bool GetKeepVariables() const { return m_KeepVariables; }
    void SetKeepVariables(bool keep) { m_KeepVariables = keep; }
    /// Walkers and names give files with their variables, and do not expand them. On at first.
    bool GetWantVariables() const { return m_WantVariables; }
    void SetWantVariables(bool want) { m_WantVariables = want; }
    bool GetVaultAllowed() const { return m_IsVaultAllowed; }
    void SetVaultAllowed(bool allow) { m_IsVaultAllowed = allow; }
    /// Backup and security copies are no files of the list. On at first.
    void IgnoreBackupFiles(bool ignore) { m_IgnoreBackupFiles = ignore; }

private:
    using CWanted = bool (CAutoFileList::*)(const CString& text) const;
    using CKeys = std::unordered_map<CString, POSITION, CNoCaseHash, CNoCaseEqual>;

    bool AddFilesFromDir(const CString& folder);
    void KeepFilesOf(const CString& folder, const CTexts& files);
    bool IsFolderEnabledForList(const CString& folder) const;
    bool IsNotInVault(const CString& text) const { return !IsInVault(text); }
    bool IsEnabledNonVaultDir(const CString& folder) const;
    bool IsAny(const CString&) const { return true; }
    CString Walk(const CTexts& texts, POSITION& position, bool isFirst, CWanted wanted) const;
    CString WalkFiles(POSITION& position, bool isFirst, CWanted wanted) const;
    CString FindFullName(const CString& name) const;
    static void CleanDir(CString& folder);

    CTexts m_Files;
    CTexts m_Dirs;
    CKeys m_FileKeys; // where each file stands
    CString m_Extension;
    const CRuntimeClass* m_DocumentClass = nullptr;
    CString m_SettingsPath;
    CString m_Qualifier;
    bool m_SearchDirs = true;
    bool m_KeepVariables = false;
    bool m_WantVariables = true;
    bool m_IsVaultAllowed = false;
    bool m_IgnoreBackupFiles = true;
};

} // namespace utility
