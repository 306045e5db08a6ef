#include "files/AppFolder.h"

#include "files/FilePath.h"
#include "files/GeneralFolder.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"
#include "settings/AppRegistry.h"
#include "text/ExpandVariables.h"

namespace utility
{

namespace
{

constexpr char16_t FOLDER_TYPE[] = u"FolderType";
constexpr char16_t FOLDER_NAME[] = u"FolderName2";
constexpr char16_t OLDER_FOLDER_NAME[] = u"FolderName"; // read only

void TakeFolderOf(const CFilePath& design, CFilePath& out)
{
    out.SetDrive(design.GetDrive());
    out.SetDirectory(design.GetDirectory());
}

void TakeGeneralFolder(CFilePath& out)
{
    CString folder = CGeneralFolder().GetFolderName();
    if (folder.IsEmpty())
        return;
    ExpandVariables(folder);
    out.SetDriveAndDirectory(folder);
}

} // namespace

EFolderType CAppFolder::GetFolderType() const
{
    int type = static_cast<int>(EFolderType::Design);
    CAppRegistry(m_SettingsPath).GetValue(FOLDER_TYPE, type);
    return static_cast<EFolderType>(type);
}

void CAppFolder::SetFolderType(EFolderType type)
{
    CAppRegistry(m_SettingsPath).SetValue(FOLDER_TYPE, static_cast<int>(type));
}

CString CAppFolder::GetFolderName() const
{
    CAppRegistry settings(m_SettingsPath);
    CString name;
    if (settings.GetValue(FOLDER_NAME, name))
        return name;
    settings.GetValue(OLDER_FOLDER_NAME, name);
    settings.SetValue(FOLDER_NAME, name);
    return name;
}

void CAppFolder::SetFolderName(const CString& name)
{
    CAppRegistry(m_SettingsPath).SetValue(FOLDER_NAME, name);
}

void CAppFolder::GetFolderPath(const CString& designPath, CFilePath& out) const
{
    GetFolderPath(GetFolderType(), GetFolderName(), designPath, out);
}

void CAppFolder::GetFolderPath(EFolderType type, CString name, const CString& designPath,
                               CFilePath& out) const
{
    ExpandVariables(name);
    const CFilePath design(designPath);
    const bool isByDesign = type == EFolderType::BelowDesign || type == EFolderType::Design;
    if (isByDesign && design.GetDirectory().IsEmpty())
        type = EFolderType::General;

    switch (type)
    {
    case EFolderType::Named:
        out.SetDriveAndDirectory(name);
        break;
    case EFolderType::BelowDesign:
        TakeFolderOf(design, out);
        out.AddSubDirectory(name);
        break;
    case EFolderType::Design:
        TakeFolderOf(design, out);
        break;
    case EFolderType::General:
        TakeGeneralFolder(out);
        break;
    }
}

std::vector<CFolderTypeRow> CAppFolder::GetTypeRows(bool forLibrary)
{
    const UINT design = forLibrary ? IDS_LIBRARY_FOLDER : IDS_DESIGN_FOLDER;
    const UINT below = forLibrary ? IDS_FOLDER_BELOW_LIBRARY : IDS_FOLDER_BELOW_DESIGN;
    return {{EFolderType::Design, CStringTable::Get(design)},
            {EFolderType::Named, CStringTable::Get(IDS_THIS_FOLDER)},
            {EFolderType::BelowDesign, CStringTable::Get(below)},
            {EFolderType::General, CStringTable::Get(IDS_GENERAL_FOLDER)}};
}

} // namespace utility
