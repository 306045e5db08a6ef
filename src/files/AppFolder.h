#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <vector>

namespace utility
{

class CComboBox;
class CFilePath;

/// Where a user keeps one kind of data; the numbers stand in settings.
enum class EFolderType
{
    Named = 0,       // the stored name is the folder
    BelowDesign = 1, // the stored name is a folder below the design's
    Design = 2,      // the design's own folder
    General = 3      // the folder that all kinds share
};

/// One line of the choice that a user is offered.
struct CFolderTypeRow
{
    EFolderType m_Type;
    CString m_Text;
};

/// The user's choice where one kind of data (backups, reports ...) lives, kept in the settings
/// below a path.
///
/// A value; each call reads or writes the store on the spot. What was never stored is the design's
/// own folder and an empty name.
class UTILITY_CORE_API CAppFolder
{
public:
    explicit CAppFolder(const CString& settingsPath) : m_SettingsPath(settingsPath) {}

    EFolderType GetFolderType() const;
    void SetFolderType(EFolderType type);

    /// A name in its older place is moved over by the first call.
    CString GetFolderName() const;
    void SetFolderName(const CString& name);

    /// Gives `out` the folder for a design; its file name and extension stay.
    ///
    ///     type           C:\Work\board.pcb, name "Backups"    no design, or one without a folder
    ///     Named          Backups                              Backups
    ///     BelowDesign    C:\Work\Backups                      as General
    ///     Design         C:\Work                              as General
    ///     General        the general folder; `out` stays as it is if that is empty
    ///
    /// Variables in names are expanded; an unknown one stays in the path. Any other type changes
    /// nothing.
    void GetFolderPath(const CString& designPath, CFilePath& out) const;
    void GetFolderPath(EFolderType type, CString name, const CString& designPath,
                       CFilePath& out) const;

    /// What a box shows, the design's folder first and the general one last.
    static std::vector<CFolderTypeRow> GetTypeRows(bool forLibrary);
    /// Shows these rows in place of what the box had, each with its type as data, and selects the
    /// stored type or another. Of the widget half: dialogs/combos/AppFolderCombo.cpp
    void FillCombo(CComboBox& combo, bool forLibrary) const;
    static void FillCombo(EFolderType selected, CComboBox& combo, bool forLibrary);

private:
    CString m_SettingsPath;
};

} // namespace utility
