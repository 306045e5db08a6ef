#include "frame/Application.h"

#include "platform/system/SystemVersion.h"
#include "platform/system/window/WinApp.h"
#include "resources/StringTable.h"

namespace utility
{

namespace
{

constexpr int USER_NAME_CAPACITY = 100; // units, with the terminator

struct CIdentity
{
    CString m_Build;
    CString m_Copyright;
    CString m_FullCompanyName;
    CString m_ShortCompanyName;
    CString m_Name;
    CString m_ProductName;
    CString m_ProductFamily;
    CString m_Variant;
    CString m_Version;
    CString m_ProductVersion;
    CString m_RegistryName;
    int m_ProductCode = 0;
    std::atomic<CWnd*> m_MainWnd = nullptr; // workers send their boxes there
    std::atomic<bool> m_RunningScript = false;
    std::atomic<bool> m_Testing = false;
};

/// Never destroyed: destructors of a host's static objects may still ask who the host is.
CIdentity& Identity()
{
    static CIdentity& identity = *new CIdentity;
    return identity;
}

} // namespace

void CApplication::SetCompanyName(const CString& name)
{
    Identity().m_FullCompanyName = name;
    const int blank = name.Find(u' ');
    Identity().m_ShortCompanyName = blank < 0 ? name : name.Left(blank);
}

CString CApplication::GetCompanyName(bool shortName)
{
    return shortName ? Identity().m_ShortCompanyName : Identity().m_FullCompanyName;
}

void CApplication::SetCopyright(const CString& copyright)
{
    Identity().m_Copyright = copyright;
}

CString CApplication::GetCopyright()
{
    return Identity().m_Copyright;
}

void CApplication::SetName(const CString& name)
{
    Identity().m_Name = name;
    AfxSetHostName(name);
}

CString CApplication::GetName()
{
    return Identity().m_Name;
}

void CApplication::SetProductName(const CString& name)
{
    Identity().m_ProductName = name;
}

CString CApplication::GetProductName()
{
    return Identity().m_ProductName;
}

void CApplication::SetProductFamily(UINT id)
{
    Identity().m_ProductFamily = CStringTable::Get(id);
}

CString CApplication::GetProductFamily()
{
    return Identity().m_ProductFamily;
}

void CApplication::SetVariant(UINT id)
{
    Identity().m_Variant = CStringTable::Get(id);
}

CString CApplication::GetVariant()
{
    return Identity().m_Variant;
}

void CApplication::SetProductCode(int code)
{
    Identity().m_ProductCode = code;
}

int CApplication::GetProductCode()
{
    return Identity().m_ProductCode;
}

void CApplication::SetRegistryName(const CString& name)
{
    Identity().m_RegistryName = name;
}

CString CApplication::GetRegistryName()
{
    const CIdentity& identity = Identity();
    return identity.m_RegistryName.IsEmpty() ? identity.m_ProductName : identity.m_RegistryName;
}

void CApplication::SetBuild(const CString& build)
{
    Identity().m_Build = build;
}

CString CApplication::GetBuild()
{
    return Identity().m_Build;
}

void CApplication::SetVersion(const CString& version)
{
    Identity().m_Version = version;
    const int firstPoint = version.Find(u'.');
    const int secondPoint = firstPoint < 0 ? -1 : version.Find(u'.', firstPoint + 1);
    Identity().m_ProductVersion = secondPoint < 0 ? version : version.Left(secondPoint);
}

CString CApplication::GetVersion()
{
    return Identity().m_Version;
}

CString CApplication::GetProductVersion()
{
    return Identity().m_ProductVersion;
}

void CApplication::SetMainWnd(CWnd* window)
{
    Identity().m_MainWnd = window;
}

CWnd* CApplication::GetMainWnd()
{
    return Identity().m_MainWnd;
}

void CApplication::IsRunningScript(bool running)
{
    Identity().m_RunningScript = running;
}

bool CApplication::IsRunningScript()
{
    return Identity().m_RunningScript;
}

void CApplication::IsTesting(bool testing)
{
    Identity().m_Testing = testing;
}

bool CApplication::IsTesting()
{
    return Identity().m_Testing;
}

const OSVERSIONINFOW* CApplication::GetOSVersion()
{
    static const OSVERSIONINFOW& version = []() -> const OSVERSIONINFOW&
    {
        OSVERSIONINFOW& filled = *new OSVERSIONINFOW{};
        filled.dwOSVersionInfoSize = OSVERSIONINFO_SIZE;
        GetVersionExW(filled);
        return filled;
    }();
    return &version;
}

bool CApplication::IsTrue32BitOS()
{
    const DWORD platform = GetOSVersion()->dwPlatformId;
    return platform != 0 && platform != VER_PLATFORM_WIN32_WINDOWS;
}

CString CApplication::GetUserNameW()
{
    const CString name = utility::GetUserNameW();
    return name.GetLength() < USER_NAME_CAPACITY ? name : CString();
}

} // namespace utility
