#include "frame/AppInstance.h"
#include "frame/LaunchProcess.h"
#include "frame/ProgramPath.h"
#include "platform/system/window/LiveWindows.h"
#include "platform/system/window/WaitCursor.h"
#include "platform/system/window/WinApp.h"

namespace utility
{

namespace
{

/// Null if no window bears the name. Capitals count: instances are told apart by the name as it
/// stands.
HWND FindWindowOf(const CString& name)
{
    HWND found = nullptr;
    EnumWindows(
        [&name, &found](const CLiveWindow& window)
        {
            if (window.m_Title.Find(name) < 0)
                return true;
            found = window.m_Window;
            return false;
        });
    return found;
}

} // namespace

bool CAppInstance::FindInstance(int instance)
{
    return FindWindowOf(GetName(instance)) != nullptr;
}

HWND CAppInstance::FindOtherWindow()
{
    return FindWindowOf(GetOtherName());
}

bool CAppInstance::Launch(int instance)
{
    const CWaitCursor busy;
    if (AfxGetApp()->m_pszExeName.IsEmpty())
        SetApplicationExeName(); // a host that has not said so means itself
    CString line;
    line.Format(u"%s -L -I%d", AfxGetApp()->m_pszExeName, instance);
    return LaunchProcess(line, false, false, false, nullptr);
}

} // namespace utility
