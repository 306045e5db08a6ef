#include "files/GeneralFolder.h"

namespace utility
{

namespace
{

constexpr char16_t SETTINGS_PATH[] = u"General Folder";
constexpr char16_t FOLDER_NAME[] = u"Folder Name";

} // namespace

CGeneralFolder::CGeneralFolder() : CAppRegistry(SETTINGS_PATH) {}

CString CGeneralFolder::GetFolderName() const
{
    CString name;
    GetValue(FOLDER_NAME, name);
    return name;
}

void CGeneralFolder::SetFolderName(const CString& name)
{
    SetValue(FOLDER_NAME, name);
}

} // namespace utility
