#include "frame/AppMessageBox.h"

#include "frame/AppError.h"
#include "frame/AppLog.h"
#include "frame/Application.h"
#include "frame/LockCount.h"
#include "frame/MacroOps.h"
#include "platform/system/process/CriticalSection.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WinApp.h"
#include "platform/system/window/Wnd.h"
#include "resources/MessageNames.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"

namespace utility
{

namespace
{

constinit CLockCount messageBoxLock; // workers read it too

const CAppLogContext& LogContext()
{
    static const CAppLogContext& context = *new CAppLogContext(u"AppMessageBox", 0);
    return context;
}

/// Lets one worker at a time have a box; held while it waits for the answer.
CCriticalSection& WorkerSection()
{
    static CCriticalSection& section = *new CCriticalSection;
    return section;
}

/// The style with the icon that a box over a tool window gets when it names none.
UINT AddDefaultIcon(UINT type)
{
    switch (type)
    {
    case MB_OK:
    case MB_OKCANCEL:
        return type | MB_ICONEXCLAMATION;
    case MB_YESNOCANCEL:
    case MB_YESNO:
        return type | MB_ICONQUESTION;
    default:
        return type;
    }
}

/// Carries a worker's box to the main window; 0 if that or its loop ends before the answer.
int AskThroughMainWindow(CWnd& mainWindow, const CString& text, UINT type, UINT helpId)
{
    const CSingleLock lock(WorkerSection(), true);
    AppMessageBoxData_s data{0, type, helpId, 0};
    mainWindow.SendMessage(MSG_SHOW_APP_MESSAGE_BOX, reinterpret_cast<WPARAM>(text.GetString()),
                           reinterpret_cast<LPARAM>(&data));
    return data.m_Result;
}

int AskUser(const CString& text, UINT type, UINT helpId)
{
    CWnd* mainWindow = CApplication::GetMainWnd();
    if (!mainWindow || GetMessageLoop().IsMainThread())
        return AfxMessageBox(text, type, helpId);
    return AskThroughMainWindow(*mainWindow, text, type, helpId);
}

/// The time of a box over a tool window, which takes no input meanwhile, as the main window is
/// told.
class CToolModality
{
public:
    explicit CToolModality(CWnd& tool) : m_Tool(tool), m_MainWindow(CApplication::GetMainWnd())
    {
        Tell(MSG_START_MODAL_WINDOW);
        m_Tool.EnableWindow(false);
    }
    /// Ends it where an exception leaves the box.
    ~CToolModality()
    {
        if (!m_IsEnded)
            End();
    }
    CToolModality(const CToolModality&) = delete;
    CToolModality& operator=(const CToolModality&) = delete;

    void End()
    {
        m_IsEnded = true;
        Tell(MSG_END_MODAL_WINDOW);
        m_Tool.EnableWindow(true);
    }

private:
    void Tell(UINT message)
    {
        if (m_MainWindow)
            m_MainWindow->SendMessage(message, reinterpret_cast<WPARAM>(m_Tool.GetSafeHwnd()));
    }

    CWnd& m_Tool;
    CWnd* m_MainWindow;
    bool m_IsEnded = false;
};

int AskOverTool(CWnd& tool, const CString& text, UINT type)
{
    CToolModality modality(tool);
    const int result = AfxMessageBox(text, AddDefaultIcon(type), 0);
    modality.End();
    return result;
}

/// What every box has around its core: a macro may answer in front of it, and hears the answer
/// behind it.
template <typename TAsk>
int ShowWith(UINT type, const TAsk& ask)
{
    int result = 0;
    if (!CMacroOps::ReplayMsgbox(CString(), result) && messageBoxLock.IsFree())
        result = ask();
    if ((type & MB_YESNO) && result == IDNO)
        CAppError::SetLastError(0);
    CMacroOps::RecordMsgbox(CString(), result);
    return result;
}

int ShowPlain(const CString& text, UINT type, UINT helpId)
{
    return ShowWith(type, [&] { return AskUser(text, type, helpId); });
}

/// The tool window over which a parent's box belongs, or null where the plain form serves.
CWnd* FindTool(CWnd* parent)
{
    if (!parent || !GetMessageLoop().IsMainThread())
        return nullptr;
    CWnd* top = parent->GetTopLevelParent();
    return top == CApplication::GetMainWnd() ? nullptr : top;
}

int ShowOver(CWnd* parent, const CString& text, UINT type)
{
    CWnd* tool = FindTool(parent);
    if (!tool)
        return ShowPlain(text, type, 0);
    return ShowWith(type, [&] { return AskOverTool(*tool, text, type); });
}

CString TraceById(UINT id)
{
    const CString text = CStringTable::Get(id);
    CAppLog::LogStr(LogContext(), u"CAppMessageBox::Show(%s)\n", text);
    return text;
}

} // namespace

void CAppMessageBox::Lock(bool lock)
{
    messageBoxLock.Change(lock);
}

int CAppMessageBox::Show(const char16_t* text, UINT type, UINT helpId)
{
    CAppLog::Log(LogContext(), u"CAppMessageBox::Show(%1)\n", text);
    return ShowPlain(text, type, helpId);
}

int CAppMessageBox::Show(UINT id, UINT type, UINT helpId)
{
    return ShowPlain(TraceById(id), type, helpId);
}

int CAppMessageBox::Show(CWnd* parent, const char16_t* text, UINT type)
{
    CAppLog::Log(LogContext(), u"CAppMessageBox::Show(%1)\n", text);
    return ShowOver(parent, text, type);
}

int CAppMessageBox::Show(CWnd* parent, UINT id, UINT type)
{
    return ShowOver(parent, TraceById(id), type);
}

LRESULT CAppMessageBox::Answer(WPARAM wParam, LPARAM lParam)
{
    auto& data = *reinterpret_cast<AppMessageBoxData_s*>(lParam);
    const CString text = data.m_IsId != 0 ? CStringTable::Get(static_cast<UINT>(wParam))
                                          : CString(reinterpret_cast<const char16_t*>(wParam));
    data.m_Result = AfxMessageBox(text, data.m_Type, data.m_HelpId);
    return data.m_Result;
}

void RegisterUtilityWarnings()
{
    CAppError::RegisterWarning(IDS_PRINTER_WARNING);
}

} // namespace utility
