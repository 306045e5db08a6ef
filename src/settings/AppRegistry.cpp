#include "settings/AppRegistry.h"

#include "frame/Application.h"
#include "platform/system/window/WinApp.h"

namespace utility
{

CAppRegistry::CAppRegistry() : CAppRegistry(CString(), HKEY_CURRENT_USER) {}

CAppRegistry::CAppRegistry(const CString& tail) : CAppRegistry(tail, HKEY_CURRENT_USER) {}

CAppRegistry::CAppRegistry(const CString& tail, HKEY root) : CRegistry(CString(), root)
{
    SetKey(tail);
}

CString CAppRegistry::GetApplicationKey()
{
    return u"Software\\" + CApplication::GetCompanyName(true) + u"\\" +
           CApplication::GetRegistryName();
}

void CAppRegistry::SetKey(const CString& tail)
{
    CRegistry::SetKey(GetApplicationKey(), nullptr);
    if (!tail.IsEmpty())
        AddTailToKey(tail);
}

void CAppRegistry::SetVersion(const CString& version)
{
    CRegistry::SetKey(u"Software\\" + CApplication::GetCompanyName(true) + u"\\" +
                          CApplication::GetProductName() + version,
                      nullptr);
}

bool CAppRegistry::DoesKeyExist(const CString& sub)
{
    SetKey(CString());
    return KeyExists(sub);
}

bool CAppRegistry::DeleteAll()
{
    SetKey(CString());
    return DeleteKey(AfxGetAppName());
}

} // namespace utility
