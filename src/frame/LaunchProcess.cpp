#include "frame/LaunchProcess.h"

#include "platform/base/String.h"
#include "platform/system/process/OwnHandle.h"
#include "platform/system/process/Process.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/UserInterface.h"
#include "platform/system/window/WaitCursor.h"
#include "platform/system/window/WindowMessages.h"

namespace utility
{

namespace
{

/// The main window is minimised while in scope, if asked.
class CMainWindowAside
{
public:
    explicit CMainWindowAside(bool isAsked) : m_IsAsked(isAsked)
    {
        if (m_IsAsked)
            GetUserInterface().MinimiseMainWindow();
    }
    ~CMainWindowAside()
    {
        if (m_IsAsked)
            GetUserInterface().RestoreMainWindow();
    }
    CMainWindowAside(const CMainWindowAside&) = delete;
    CMainWindowAside& operator=(const CMainWindowAside&) = delete;

private:
    const bool m_IsAsked;
};

/// The program that was started; none if it could not be.
COwnHandle Start(const CString& commandLine, bool minimised, DWORD flags)
{
    STARTUPINFOW startup;
    if (minimised)
    {
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = static_cast<WORD>(SW_MINIMIZE);
    }
    PROCESS_INFORMATION process;
    if (!CreateProcessW(commandLine, NORMAL_PRIORITY_CLASS | flags, startup, process))
        return {};
    const COwnHandle unused(process.hThread);
    return COwnHandle(process.hProcess);
}

} // namespace

bool LaunchProcess(const CString& commandLine, bool wait, bool minimised, bool minimiseMain,
                   DWORD* exitCode)
{
    const CWaitCursor busy;
    const COwnHandle process = Start(commandLine, minimised, wait ? 0 : DETACHED_PROCESS);
    if (!process)
        return false;
    if (wait)
    {
        const CMainWindowAside aside(minimiseMain);
        GetMessageLoop().WaitForHandle(process.Get());
        if (exitCode)
            GetExitCodeProcess(process.Get(), *exitCode);
    }
    return true;
}

bool LaunchProcess(const CString& commandLine, HANDLE* processHandle)
{
    const CWaitCursor busy;
    COwnHandle process = Start(commandLine, true, DETACHED_PROCESS);
    if (!process)
        return false;
    if (processHandle)
        *processHandle = process.Release();
    return true;
}

} // namespace utility
