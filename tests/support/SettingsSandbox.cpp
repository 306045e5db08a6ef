#include "support/SettingsSandbox.h"

#include "frame/Application.h"

namespace utility
{

CSettingsSandbox::CSettingsSandbox()
{
    static int count = 0;
    CString name;
    name.Format(u"Case %d", ++count);
    CApplication::SetCompanyName(u"Test Makers");
    CApplication::SetRegistryName(name);
}

CSettingsSandbox::~CSettingsSandbox()
{
    CApplication::SetCompanyName(CString());
    CApplication::SetRegistryName(CString());
}

} // namespace utility
