#include "utility/host/Host.h"

#include "frame/AppLog.h"
#include "frame/AppLogSettings.h"
#include "frame/Application.h"
#include "frame/WarningOptions.h"
#include "platform/base/Encoding.h"
#include "settings/AppRegistry.h"

#include "utility/host/Interrupt.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

void TellBox(const CString& line)
{
    CString text = line;
    PrintError(text.TrimRight());
}

} // namespace

std::optional<CAppName> ReadAppName(const CString& text)
{
    const int slash = text.Find(u'/');
    if (slash < 1 || slash + 1 == text.GetLength() || text.Find(u'\\') >= 0)
        return std::nullopt;
    return CAppName{text.Left(slash), text.Mid(slash + 1)};
}

CHost::CHost(const CAppName& app, bool saysYes)
{
    CApplication::SetCompanyName(app.m_Company);
    CApplication::SetName(app.m_Name);
    CApplication::SetProductName(app.m_Name);
    CApplication::SetVersion(FromUtf8(UTILITY_VERSION));
    CWarningOptions::Install();

    const EBoxPolicy policy = saysYes ? EBoxPolicy::SayYes : EBoxPolicy::ChangeNothing;
    m_UserInterface = MakeStandardUserInterface(policy, IsInterrupted);
    SetUserInterface(m_UserInterface.get());
    SetBoxTrace(TellBox);
}

void CHost::StartLog()
{
    int logging = 0; // asked first, since a start writes the settings that are absent
    if (!CAppRegistry(LOG_SETTINGS_KEY).GetValue(LOG_SWITCH, logging))
        return;
    CAppLog::Start();
    SetBoxTrace(TellBox); // the log takes the boxes for itself; here they are told
}

CHost::~CHost()
{
    SetBoxTrace(nullptr);
    SetUserInterface(nullptr);
}

} // namespace utility
