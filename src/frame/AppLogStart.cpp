#include "files/DataFolder.h"
#include "files/FilePath.h"
#include "frame/AppLog.h"
#include "frame/AppLogSettings.h"
#include "frame/AppLogState.h"
#include "frame/Application.h"
#include "platform/base/LastError.h"
#include "platform/base/NumberText.h"
#include "platform/system/KnownFolders.h"
#include "platform/system/file/FileCalls.h"
#include "platform/system/window/UserInterface.h"
#include "settings/AppRegistry.h"

namespace utility
{

namespace
{

constexpr char16_t CONTEXT_SEPARATORS[] = u",; ";
constexpr char16_t OFF_MARK = u'!';
constexpr int LEVEL_LIMIT = 9999;

constexpr char16_t LOG_NAME[] = u"Application";
constexpr char16_t LOG_EXTENSION[] = u"Log";

/// One token of the context list: "Name", "Name=Level", or "!..." for one that is switched off.
struct CContextToken
{
    CString m_Name; // empty if the token lists nothing
    int m_Level = 0;
};

CContextToken ParseToken(const CString& token)
{
    if (token[0] == OFF_MARK)
        return {};
    CContextToken context{token, 0};
    const int equals = token.Find(u'=');
    if (equals >= 1)
        context = {token.Left(equals), wcstol(token.Mid(equals + 1), nullptr, 10)};
    context.m_Name.Trim();
    const bool isInRange = context.m_Level >= 0 && context.m_Level <= LEVEL_LIMIT;
    return isInRange ? context : CContextToken{};
}

/// Makes the folder of the log and deletes what an earlier run wrote.
void PrepareFile(const CString& path)
{
    CFilePath::CreateDirectoryW(CFilePath(path).GetDriveAndDirectory());
    DeleteFileW(path);
}

} // namespace

CString CAppLog::GetLogPath()
{
    CFilePath path(GetDataFolder(CSIDL_PERSONAL, CApplication::GetProductName()));
    path.SetFileName(LOG_NAME);
    path.SetExtension(LOG_EXTENSION);
    return path.WasCut() ? CString() : path.GetPath();
}

void CAppLog::Start()
{
    const CLastErrorKeeper keeper;
    CAppRegistry settings(LOG_SETTINGS_KEY);
    int logging = 0;
    if (!settings.GetValue(LOG_SWITCH, logging))
    {
        settings.SetValue(LOG_SWITCH, 0);
        settings.SetValue(LOG_CONTEXTS, true); // a 1, which lists no context
        return;
    }
    if (logging <= 0)
        return;

    CState& state = State();
    const CString path = GetLogPath();
    PrepareFile(path);
    state.m_File.SetPath(path);
    LoadContext();
    state.m_IndentLevel = 0;
    m_Logging = 1;
    state.m_DiscardRepeats = false;
    settings.GetValue(LOG_DISCARD_REPEATS, state.m_DiscardRepeats);
    SetBoxTrace(TraceBox);
}

/// Empties the names and not the levels, so after a second start a name has the level that stood at
/// its place.
void CAppLog::LoadContext()
{
    CState& state = State();
    state.m_Contexts.clear();
    CString list;
    if (!CAppRegistry(LOG_SETTINGS_KEY).GetValue(LOG_CONTEXTS, list))
        return;

    int start = 0;
    for (CString token = list.Tokenize(CONTEXT_SEPARATORS, start); start >= 0;
         token = list.Tokenize(CONTEXT_SEPARATORS, start))
    {
        const CContextToken context = ParseToken(token);
        if (context.m_Name.IsEmpty())
            continue;
        state.m_Contexts.push_back(context.m_Name);
        state.m_Levels.push_back(context.m_Level);
    }
}

} // namespace utility
