#include "frame/AppInstance.h"

#include "platform/system/window/LiveWindows.h"
#include "platform/system/window/WinApp.h"
#include "settings/AppRegistry.h"

namespace utility
{

namespace
{

constexpr char16_t SETTINGS_KEY[] = u"MultipleInstances";
constexpr char16_t BEEN_ENABLED[] = u"BeenEnabled";
constexpr char16_t ENABLED[] = u"Enabled";
constexpr char16_t EXIT_ALL[] = u"ExitAll";
constexpr char16_t OPEN_ALL[] = u"OpenAll";
constexpr char16_t WIN_OTHER[] = u"WinOther";
constexpr char16_t WIN_PCB[] = u"WinPcb";
constexpr char16_t WIN_SCM[] = u"WinScm";

constexpr char16_t PCB_NAME[] = u":PCB";
constexpr char16_t SCM_NAME[] = u":SCM";
constexpr int FIRST_WITH_OWN_KEYS = 2;

constinit bool isDeferred = false; // a change waits for a restart

template <typename TValue>
void Store(const char16_t* name, TValue value)
{
    CAppRegistry(SETTINGS_KEY).SetValue(name, value);
}

} // namespace

CAppInstance& CAppInstance::Live()
{
    static CAppInstance& live = *new CAppInstance; // never destroyed: end-of-program code may ask
    return live;
}

CAppInstance& CAppInstance::Deferred()
{
    static CAppInstance& deferred = *new CAppInstance;
    return deferred;
}

void CAppInstance::InitSettings()
{
    Live().Initialise();
    Deferred().Initialise();
}

void CAppInstance::Initialise()
{
    if (m_Initialised)
        return;
    m_Initialised = true;
    m_Name = AfxGetAppName();
    const CAppRegistry settings(SETTINGS_KEY);
    settings.GetValue(BEEN_ENABLED, m_BeenEnabled);
    settings.GetValue(ENABLED, m_Enabled);
    settings.GetValue(EXIT_ALL, m_ExitAll);
    settings.GetValue(OPEN_ALL, m_OpenAllOnStartup);
    settings.GetValue(WIN_OTHER, m_WinOther);
    settings.GetValue(WIN_PCB, m_WinPcb);
    settings.GetValue(WIN_SCM, m_WinScm);
}

/// The set that getters and setters mean at present.
CAppInstance& CAppInstance::InUse()
{
    InitSettings();
    return Live().m_UseDeferred ? Deferred() : Live();
}

int CAppInstance::GetInstance()
{
    InitSettings();
    return Live().m_Instance;
}

void CAppInstance::SetInstance(int instance)
{
    InitSettings();
    Live().m_Instance = instance;
    SetLiveInstance(instance);
}

bool CAppInstance::ThisInstance(int instance)
{
    return instance == GetInstance();
}

CString CAppInstance::GetName()
{
    return GetName(GetInstance());
}

CString CAppInstance::GetName(int instance)
{
    InitSettings();
    const CAppInstance& live = Live();
    if (!live.m_Enabled || instance == 0)
        return live.m_Name;
    return live.m_Name + (instance == live.m_WinPcb ? PCB_NAME : SCM_NAME);
}

CString CAppInstance::GetOtherName()
{
    return GetName(GetOtherWin());
}

CString CAppInstance::GetKey(const CString& key, bool mustExist)
{
    InitSettings();
    const CAppInstance& live = Live();
    if (!live.m_Enabled)
        return key;
    const CString name = live.m_Instance >= FIRST_WITH_OWN_KEYS ? GetName() : live.m_Name;
    const bool isOwn = name.Find(u':') >= 1;
    if (!isOwn || key.View().starts_with(SETTINGS_KEY))
        return key;

    const CString ownKey = CString(SETTINGS_KEY) + u"\\" + name + u"\\" + key;
    return !mustExist || CAppRegistry(ownKey).KeyExists() ? ownKey : key;
}

bool CAppInstance::GetEnabled()
{
    return InUse().m_Enabled;
}

void CAppInstance::SetEnabled(bool enabled)
{
    CAppInstance& values = InUse();
    values.m_Enabled = enabled;
    Store(ENABLED, enabled);
    if (!enabled)
        return;
    values.m_BeenEnabled = true;
    Store(BEEN_ENABLED, true);
}

bool CAppInstance::BeenEnabled()
{
    return InUse().m_BeenEnabled;
}

bool CAppInstance::GetExitAll()
{
    return InUse().m_ExitAll;
}

void CAppInstance::SetExitAll(bool exitAll)
{
    InUse().m_ExitAll = exitAll;
    Store(EXIT_ALL, exitAll);
}

bool CAppInstance::GetOpenAllOnStartup()
{
    return InUse().m_OpenAllOnStartup;
}

void CAppInstance::SetOpenAllOnStartup(bool openAll)
{
    InUse().m_OpenAllOnStartup = openAll;
    Store(OPEN_ALL, openAll);
}

int CAppInstance::GetWinOther()
{
    return InUse().m_WinOther;
}

void CAppInstance::SetWinOther(int instance)
{
    InUse().m_WinOther = instance;
    Store(WIN_OTHER, instance);
}

int CAppInstance::GetWinPcb()
{
    return InUse().m_WinPcb;
}

void CAppInstance::SetWinPcb(int instance)
{
    InUse().m_WinPcb = instance;
    Store(WIN_PCB, instance);
}

int CAppInstance::GetWinScm()
{
    return InUse().m_WinScm;
}

void CAppInstance::SetWinScm(int instance)
{
    InUse().m_WinScm = instance;
    Store(WIN_SCM, instance);
}

int CAppInstance::GetOtherWin()
{
    InitSettings();
    const CAppInstance& live = Live();
    return live.m_Instance == live.m_WinPcb ? live.m_WinScm : live.m_WinPcb;
}

bool CAppInstance::OtherDocsInOtherInstance()
{
    return GetEnabled() && GetWinOther() != GetInstance();
}

bool CAppInstance::IsMultiScreen()
{
    return InUse().m_MultiScreen;
}

void CAppInstance::SetMultiScreen(bool multiScreen)
{
    InUse().m_MultiScreen = multiScreen;
}

bool CAppInstance::IsDeferred()
{
    InitSettings();
    return isDeferred;
}

void CAppInstance::SetDeferred()
{
    InitSettings();
    isDeferred = true;
}

void CAppInstance::SetUseDeferredValues(bool use)
{
    InitSettings();
    Live().m_UseDeferred = use;
}

} // namespace utility
