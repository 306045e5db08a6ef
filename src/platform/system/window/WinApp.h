#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/system/window/CmdTarget.h"

namespace utility
{

class CWnd;

/// The running program as the framework knows it. A host makes one; until then there is a plain
/// one.
///
/// Main thread; the host fills it before there are other threads.
class UTILITY_CORE_API CWinApp : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinApp)

public:
    CWinApp();           // becomes the program's record
    ~CWinApp() override; // gives the place back to the one before it

    CString m_pszAppName; // caption of boxes; empty: see AfxGetAppName
    CString m_pszExeName;
    CString m_pszHelpFilePath;
    CWnd* m_pMainWnd = nullptr; // not owned

private:
    CWinApp* m_Previous;
};

/// Never null.
UTILITY_CORE_API CWinApp* AfxGetApp();
/// The record's main window, or null.
UTILITY_CORE_API CWnd* AfxGetMainWnd();
/// The record's name, else the one that the host's identity gave, else the program's file name.
UTILITY_CORE_API CString AfxGetAppName();
/// What the host's identity calls the program.
UTILITY_CORE_API void AfxSetHostName(const CString& name);

/// A box with the program's name as caption over the active window. 0 if the id has no text.
UTILITY_CORE_API int AfxMessageBox(const char16_t* text, UINT type = 0, UINT helpId = 0);
UTILITY_CORE_API int AfxMessageBox(UINT id, UINT type = 0, UINT helpId = 0);

} // namespace utility
