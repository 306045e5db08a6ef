#pragma once

#include "settings/AppRegistry.h"

namespace utility
{

/// In which folder the application starts; the numbers stand in settings.
enum class EStartupFolderType
{
    Unchanged = 0, // wherever it was started
    Named = 1,     // the stored folder
    Last = 2       // the stored folder, which follows the current one
};

/// The folder in which the application starts, in the settings.
///
/// User-interface thread: the current folder is the whole process's.
class UTILITY_CORE_API CStartupFolder : public CAppRegistry
{
public:
    CStartupFolder();

    EStartupFolderType GetType() const;
    void SetType(EStartupFolderType type);

    CString GetFolderName() const;
    void SetFolderName(const CString& name);

    /// Stores the current folder if the type asks for it, and its path has less than 260 units.
    void SaveState();
    /// Goes to the stored folder, variables expanded, unless the type leaves things alone. A folder
    /// that is not there changes nothing.
    void RestoreState() const;
};

} // namespace utility
