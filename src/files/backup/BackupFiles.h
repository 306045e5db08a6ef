#pragma once

#include "files/backup/BackupKind.h"
#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <vector>

namespace utility
{

class CAppFolder;
class CBackupTemplate;
class CComboBox;
class CFilePath;
class CListBox;
class CSortedList;
class CTimeFormatter;
enum class EFolderType;
struct CBackupFileInfo;

/// One line of the list that a restore dialog shows; the heading has no file.
struct CBackupListRow
{
    CString m_Text; // name, time and size with tabs between
    const CBackupFileInfo* m_File = nullptr;
};

/// Names of the copies of a design: settings, next name, and which files are copies.
///
/// Backup copies are made when a design is saved, security copies on a timer, restore points on
/// request. Names only: who copies files is `CBackupCopy`, or the caller. User-interface thread.
/// docs/formats/backup-names.md has the rules and a picture of the rotation.
class UTILITY_CORE_API CBackupFiles
{
public:
    // Names

    /// The place and name of the next copy; folder and template of its kind decide, the extension
    /// stays. With `apply` the oldest copies are deleted and others renumbered, so that `out` can
    /// be written, and the folder is made; without it the disk is only read.
    ///
    /// False, and `out` is the design's path, if the kind is switched off; false as well if the
    /// folder cannot be made. An empty design leaves what `out` was to begin with.
    static bool MakeBackupName(CFilePath& out, const CString& designPath, bool apply);
    static bool MakeSecurityCopyName(CFilePath& out, const CString& designPath, bool apply);
    static bool MakeRestorePointName(CFilePath& out, const CString& designPath,
                                     const CString& label, bool apply);
    /// The same by kind. What is not `wanted` counts as switched off.
    static bool MakeName(EBackupKind kind, CFilePath& out, const CString& designPath,
                         const CString& label, bool wanted, bool apply);
    /// Whether a kind is made at all; restore points always are.
    static bool IsWanted(EBackupKind kind);

    /// By the name alone, its folder and extension do not count. A template without any text of its
    /// own, in the design's folder, claims no name.
    static bool IsBackupName(const CString& path);
    static bool IsSecurityCopyName(const CString& path);
    static bool IsRestorePointName(const CString& path);
    static bool DoesRestorePointIncludeLabel();

    // Copies that are there

    /// Fills `files` with the copies of a design (`CBackupFileInfo`, freed by `FreeList`), the
    /// oldest first, and gives the lines to show, a heading first. With `showAll` every file of its
    /// extension in their folders counts, once.
    static std::vector<CBackupListRow> ListFiles(CSortedList& files, const CFilePath& design,
                                                 bool security, bool backup, bool restorePoints,
                                                 bool showAll);
    /// Empty for the heading and for an index out of bounds.
    static CString GetPathFromList(const std::vector<CBackupListRow>& rows, int index);
    static void FreeList(CSortedList& files);

    // Shown in controls, of the widget half: dialogs/lists/BackupList.cpp and
    // dialogs/combos/AppFolderCombo.cpp

    /// Shows the lines of `ListFiles` in place of what the list had; `files` must live as long as
    /// they are shown.
    static void FillList(CListBox& list, CSortedList& files, const CFilePath& design, bool security,
                         bool backup, bool restorePoints, bool showAll);
    static CString GetPathFromList(const CListBox& list, int index);
    static void FillBackupKeepWhereCombo(CComboBox& combo);
    static void FillSecurityCopyKeepWhereCombo(CComboBox& combo);
    static void FillRestorePointKeepWhereCombo(CComboBox& combo);

    // Settings, read and written on the spot: BackupSettings.cpp

    static CString GetFilenameTemplate(EBackupKind kind);
    static int GetCopyCount(EBackupKind kind);
    static CAppFolder GetFolder(EBackupKind kind);

    static CString GetBackupFilenameTemplate();
    static void SetBackupFilenameTemplate(const CString& text);
    static CString GetSecurityCopyFilenameTemplate();
    static void SetSecurityCopyFilenameTemplate(const CString& text);
    static CString GetRestorePointFilenameTemplate();
    static void SetRestorePointFilenameTemplate(const CString& text);

    static EFolderType GetBackupKeepWhere();
    static void SetBackupKeepWhere(EFolderType type);
    static CString GetBackupDir();
    static void SetBackupDir(const CString& folder);
    static EFolderType GetSecurityCopyKeepWhere();
    static void SetSecurityCopyKeepWhere(EFolderType type);
    static CString GetSecurityCopyDir();
    static void SetSecurityCopyDir(const CString& folder);
    static EFolderType GetRestorePointKeepWhere();
    static void SetRestorePointKeepWhere(EFolderType type);
    static CString GetRestorePointDir();
    static void SetRestorePointDir(const CString& folder);

    static bool GetDoBackup();
    static void SetDoBackup(bool wanted);
    /// 0 keeps any number.
    static int GetBackupCopyCount();
    static void SetBackupCopyCount(int count);
    static bool GetDoSecurity();
    static void SetDoSecurity(bool wanted);
    /// Seconds; the timer is the caller's.
    static int GetSecurityInterval();
    static void SetSecurityInterval(int seconds);
    static int GetSecurityCopyCount();
    static void SetSecurityCopyCount(int count);

    // What a restore dialog was last asked to show
    static bool GetRestoreBackups();
    static void SetRestoreBackups(bool shown);
    static bool GetRestoreBackupShowAllFiles();
    static void SetRestoreBackupShowAllFiles(bool shown);
    static bool GetRestoreSecurityCopies();
    static void SetRestoreSecurityCopies(bool shown);
    static bool GetRestoreRestorePoints();
    static void SetRestoreRestorePoints(bool shown);

    // Older settings: BackupConversion.cpp

    /// Settings of a version below 2 are brought over and deleted.
    static void ConvertRegistry(int version);
    /// Gives security copies and restore points, if never set, the place of the backup copies.
    static void ConvertFolders();

private:
    static void MakeNextMultipleCopyName(CFilePath& out, const CFilePath& design,
                                         const CBackupTemplate& pattern, int copyCount,
                                         const CString& label, bool apply,
                                         const CTimeFormatter* time);
    static void AddFilesToList(CSortedList& files, EBackupKind kind, const CFilePath& design,
                               bool showAll);

    template <typename T>
    static T GetValue(EBackupKind kind, const char16_t* key, T preset);
    template <typename T>
    static void SetValue(EBackupKind kind, const char16_t* key, const T& value);
};

} // namespace utility
