#include "platform/system/window/WinApp.h"

#include "platform/system/process/Process.h"
#include "platform/system/window/UserInterface.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CWinApp, CCmdTarget)

namespace
{

constinit CWinApp* currentApp = nullptr;

CString& HostName()
{
    static CString name;
    return name;
}

/// "partsdesk" of "\opt\suite\partsdesk.exe".
CString GetProgramFileName()
{
    const CString path = GetModuleFileNameW();
    CString name = path.Mid(path.ReverseFind(u'\\') + 1);
    const int point = name.ReverseFind(u'.');
    return point > 0 ? name.Left(point) : name;
}

} // namespace

CWinApp::CWinApp() : m_Previous(std::exchange(currentApp, this)) {}

CWinApp::~CWinApp()
{
    currentApp = m_Previous;
}

CWinApp* AfxGetApp()
{
    // The plain record is never destroyed: a host's own goes back to it.
    if (!currentApp)
        new CWinApp;
    return currentApp;
}

CWnd* AfxGetMainWnd()
{
    return AfxGetApp()->m_pMainWnd;
}

CString AfxGetAppName()
{
    if (!AfxGetApp()->m_pszAppName.IsEmpty())
        return AfxGetApp()->m_pszAppName;
    return HostName().IsEmpty() ? GetProgramFileName() : HostName();
}

void AfxSetHostName(const CString& name)
{
    HostName() = name;
}

int AfxMessageBox(const char16_t* text, UINT type, UINT helpId)
{
    IUserInterface& user = GetUserInterface();
    return user.ShowBox({user.GetActiveWindow(), text, AfxGetAppName(), type, helpId});
}

int AfxMessageBox(UINT id, UINT type, UINT helpId)
{
    CString text;
    return text.LoadString(id) ? AfxMessageBox(text, type, helpId) : 0;
}

} // namespace utility
