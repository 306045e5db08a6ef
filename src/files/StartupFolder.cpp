#include "files/StartupFolder.h"

#include "platform/system/file/FileCalls.h"
#include "text/ExpandVariables.h"

namespace utility
{

namespace
{

constexpr char16_t SETTINGS_PATH[] = u"Startup Folder";
constexpr char16_t FOLDER_NAME[] = u"Folder Name";
constexpr char16_t TYPE[] = u"Type";
constexpr int LENGTH_LIMIT = 260; // the buffer for the current folder, with its terminator

} // namespace

CStartupFolder::CStartupFolder() : CAppRegistry(SETTINGS_PATH) {}

EStartupFolderType CStartupFolder::GetType() const
{
    int type = static_cast<int>(EStartupFolderType::Unchanged);
    GetValue(TYPE, type);
    return static_cast<EStartupFolderType>(type);
}

void CStartupFolder::SetType(EStartupFolderType type)
{
    SetValue(TYPE, static_cast<int>(type));
}

CString CStartupFolder::GetFolderName() const
{
    CString name;
    GetValue(FOLDER_NAME, name);
    return name;
}

void CStartupFolder::SetFolderName(const CString& name)
{
    SetValue(FOLDER_NAME, name);
}

void CStartupFolder::SaveState()
{
    if (GetType() != EStartupFolderType::Last)
        return;
    const CString folder = GetCurrentDirectoryW();
    if (!folder.IsEmpty() && folder.GetLength() < LENGTH_LIMIT)
        SetFolderName(folder);
}

void CStartupFolder::RestoreState() const
{
    if (GetType() == EStartupFolderType::Unchanged)
        return;
    CString folder = GetFolderName();
    ExpandVariables(folder);
    SetCurrentDirectoryW(folder);
}

} // namespace utility
