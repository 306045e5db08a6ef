#include "frame/AppError.h"
#include "frame/Application.h"
#include "frame/MacroOps.h"
#include "frame/UtilIoOps.h"
#include "platform/base/MessageFormat.h"
#include "platform/system/file/StdioFile.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/UserInterface.h"
#include "resources/StringTable.h"

#include <unordered_set>

namespace utility
{

namespace
{

constexpr char16_t WARNING_CAPTION[] = u"Warning"; // what macros know the box by

/// The warnings held until a command reports them.
struct CHeldWarnings
{
    int m_WarningLock = 0;
    UINT m_LastWarning = 0;
    int m_WarningCount = 0;
    CString m_WarningString;
    std::unordered_set<CString> m_WarningList; // the same texts, each once
};

/// Never destroyed: destructors of a host's static objects may still warn.
CHeldWarnings& Held()
{
    static CHeldWarnings& held = *new CHeldWarnings;
    return held;
}

/// Where an entry's name ends: its first line feed, if that is not the first unit; else -1.
int FindNameEnd(const CString& entry)
{
    const int lineFeed = entry.Find(u'\n');
    return lineFeed >= 1 ? lineFeed : -1;
}

/// What an entry tells the user: the part behind its name.
CString GetWarningTemplate(UINT id)
{
    const CString entry = CStringTable::Get(id);
    return entry.Mid(FindNameEnd(entry) + 1);
}

} // namespace

void CAppError::AddWarning(UINT id, CFormatArguments inserts)
{
    if (!IsWarningEnabled(id))
        return;

    CHeldWarnings& held = Held();
    held.m_LastWarning = id;
    const CString text = FormatMessageText(GetWarningTemplate(id), inserts);
    if (text.IsEmpty() || !held.m_WarningList.insert(text).second)
        return;

    held.m_WarningString += text;
    if (text[text.GetLength() - 1] != u'\n')
        held.m_WarningString += u'\n';
    ++held.m_WarningCount;
}

int CAppError::GetWarningCount()
{
    return Held().m_WarningCount;
}

UINT CAppError::GetLastWarning()
{
    return Held().m_LastWarning;
}

CString CAppError::GetWarningString()
{
    return Held().m_WarningString;
}

CString CAppError::GetWarningName(UINT id)
{
    const CString entry = CStringTable::Get(id);
    const int nameEnd = FindNameEnd(entry);
    return nameEnd < 0 ? entry : entry.Left(nameEnd);
}

void CAppError::ClearWarnings(bool force)
{
    if (!force && !AreWarningsUnlocked())
        return;
    CHeldWarnings& held = Held();
    held.m_WarningString.Empty();
    held.m_WarningCount = 0;
    held.m_WarningList.clear();
}

bool CAppError::AreWarningsUnlocked()
{
    return Held().m_WarningLock == 0;
}

void CAppError::LockWarnings(bool lock)
{
    int& count = Held().m_WarningLock;
    if (lock)
        ++count;
    else if (count > 0)
        --count;
}

bool CAppError::ReportWarnings(bool showCancel, UINT helpId, void (*reportFn)(void*),
                               void* reportArg, CWnd* parent)
{
    CWarningsRequest request;
    request.m_ShowCancel = showCancel;
    request.m_HelpId = helpId;
    request.m_ReportFn = reportFn;
    request.m_ReportArg = reportArg;
    request.m_Parent = parent;
    return ShowWarnings(request, IDOK);
}

bool CAppError::ReportWarningsYesNo(UINT helpId, void (*reportFn)(void*), void* reportArg,
                                    CWnd* parent)
{
    CWarningsRequest request;
    request.m_AsQuestion = true;
    request.m_HelpId = helpId;
    request.m_ReportFn = reportFn;
    request.m_ReportArg = reportArg;
    request.m_Parent = parent;
    return ShowWarnings(request, 0);
}

/// Asks the macro, else the user; the macro's answer leaves the warnings held.
bool CAppError::ShowWarnings(CWarningsRequest& request, int preset)
{
    const CHeldWarnings& held = Held();
    if (held.m_WarningCount < 1 || !AreWarningsUnlocked())
        return true;

    int result = preset;
    if (!CMacroOps::ReplayMsgbox(WARNING_CAPTION, result))
    {
        request.m_Count = held.m_WarningCount;
        request.m_Text = held.m_WarningString;
        request.m_WarningId = held.m_WarningCount == 1 ? held.m_LastWarning : 0;
        result = GetUserInterface().ShowWarnings(request);
        ClearWarnings(false);
    }
    CMacroOps::RecordMsgbox(WARNING_CAPTION, result);
    return result == IDOK;
}

bool CAppError::ReportWarnings(CStdioFile* file, bool clear)
{
    if (GetWarningCount() < 1)
        return false;

    CString text = Held().m_WarningString;
    text.Replace(u"\n", u"\r\n");
    // The count is in units and taken as bytes: the first half of the text reaches the file.
    // Programs that read the report know it so.
    file->Write(text.GetString(), static_cast<UINT>(text.GetLength()));
    if (clear)
        ClearWarnings(true);
    return true;
}

void CAppError::RegisterWarning(UINT id)
{
    CUtilIoOps::RegisterWarning(id);
}

void CAppError::SetWarningEnabled(UINT id, bool enabled)
{
    CUtilIoOps::SetWarningEnabled(id, enabled);
}

bool CAppError::IsWarningEnabled(UINT id)
{
    return !CApplication::IsTesting() && CUtilIoOps::IsWarningEnabled(id);
}

} // namespace utility
