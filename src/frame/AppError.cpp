#include "frame/AppError.h"

#include "frame/AppLog.h"
#include "frame/Application.h"
#include "frame/LockCount.h"
#include "frame/MacroOps.h"
#include "platform/base/LastError.h"
#include "platform/base/MessageFormat.h"
#include "platform/system/SystemMessage.h"
#include "platform/system/process/CriticalSection.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/UserInterface.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"

namespace utility
{

namespace
{

constinit CLockCount errorLock; // read by workers, whose errors it silences too

/// The last error. Its lock also spans the wording, so that code and text always belong together.
struct CLastRecord
{
    CCriticalSection m_LastErrorSection;
    UINT m_LastError = 0;
    CString m_LastErrorString;
};

/// Never destroyed: destructors of a host's static objects may still record a failure.
CLastRecord& LastRecord()
{
    static CLastRecord& record = *new CLastRecord;
    return record;
}

} // namespace

void CAppError::SetLastError(UINT id, CFormatArguments inserts)
{
    CLastRecord& record = LastRecord();
    const CSingleLock lock(record.m_LastErrorSection, true);
    record.m_LastErrorString = id != 0 ? GetErrorString(id, inserts) : CString();
    record.m_LastError = id;
    utility::SetLastError(id);
}

// On purpose without the lock: the caller puts a saved pair back.
void CAppError::ResetLastError(UINT id, const CString& text)
{
    CLastRecord& record = LastRecord();
    record.m_LastErrorString = text;
    record.m_LastError = id;
    utility::SetLastError(id);
}

UINT CAppError::GetLastError()
{
    CLastRecord& record = LastRecord();
    const CSingleLock lock(record.m_LastErrorSection, true);
    return record.m_LastError;
}

CString CAppError::GetLastErrorString()
{
    CLastRecord& record = LastRecord();
    const CSingleLock lock(record.m_LastErrorSection, true);
    const DWORD systemCode = utility::GetLastError();
    if (systemCode != 0 && systemCode != record.m_LastError)
        return GetErrorString(systemCode);
    return record.m_LastErrorString;
}

CString CAppError::GetErrorString(UINT id, CFormatArguments inserts)
{
    const char16_t* text = CStringTable::Find(id);
    return text ? FormatMessageText(text, inserts) : GetSystemMessage(id);
}

void CAppError::ReportError(UINT id, CFormatArguments inserts)
{
    if (!AreErrorsUnlocked())
        SetLastError(id, inserts);
    else
        ReportError(GetErrorString(id, inserts));
}

void CAppError::ReportError(const CString& text)
{
    static const CAppLogContext& context = *new CAppLogContext(u"ReportError", 0);
    CAppLog::Log(context, u"CAppError::ReportError(%1)\n", text);
    if (text.IsEmpty())
        return;

    if (!AreErrorsUnlocked())
        SetLastError(IDS_PLAIN_TEXT, text);
    else
        ShowError(text);
}

void CAppError::ShowError(const CString& text)
{
    const CString caption = CStringTable::Get(IDS_ERROR_CAPTION);
    int result = 0;
    if (!CMacroOps::ReplayMsgbox(caption, result))
    {
        IUserInterface& user = GetUserInterface();
        CWnd* owner = user.GetActiveWindow();
        user.ShowBox({owner ? owner : CApplication::GetMainWnd(), text, caption,
                      MB_OK | MB_ICONEXCLAMATION, 0});
    }
    CMacroOps::RecordMsgbox(caption, IDOK);
}

void CAppError::ReportError(CEdit& edit, UINT id)
{
    if (AreErrorsUnlocked())
    {
        // Selecting must not disturb what GetLastErrorString would say.
        const CLastErrorKeeper keeper;
        GetUserInterface().ReselectEdit(edit);
    }
    ReportError(id);
}

void CAppError::ReportLastError()
{
    if (AreErrorsUnlocked())
        ReportError(GetLastErrorString());
}

bool CAppError::AreErrorsUnlocked()
{
    return errorLock.IsFree();
}

void CAppError::LockErrors(bool lock)
{
    errorLock.Change(lock);
}

void ReportError(CEdit& edit, UINT id)
{
    CAppError::ReportError(edit, id);
}

void ReportError(const CString& text)
{
    CAppError::ReportError(text);
}

} // namespace utility
