#include "files/DataFolder.h"
#include "frame/AppLog.h"
#include "frame/AppMessageBox.h"
#include "frame/Application.h"
#include "frame/MacroOps.h"
#include "platform/system/KnownFolders.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/UserInterface.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "resources/StringIds.h"
#include "settings/AppRegistry.h"

#include "support/ChildProcess.h"
#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace utility
{
namespace
{

/// Boxes that no user sees, in a process of its own: what is switched on here stays on.
class AppMessageBoxTraceTest : public testing::Test
{
protected:
    AppMessageBoxTraceTest()
    {
        CApplication::SetProductName(u"Box Test");
        CAppRegistry settings(u"Application");
        settings.SetValue(u"Logging", 1);
        settings.SetValue(u"LoggingContext", u"AppMessageBox");
    }

    static std::string ReadLog()
    {
        std::ifstream file(
            DiskPathBytes(GetDataFolder(CSIDL_PERSONAL, u"Box Test") + u"Application.Log"));
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    const CSettingsSandbox m_Sandbox;
};

TEST_F(AppMessageBoxTraceTest, EveryBoxIsTracedOnceWhoeverAnswersIt)
{
    if (!IsInFreshProcess())
        return;
    CAppLog::Start();
    CWnd tool;
    ASSERT_TRUE(tool.Create(u"Tool", u"", WS_POPUP, nullptr));
    CAppMessageBox::Show(u"100 % of %1?", MB_YESNO, 0);
    CAppMessageBox::Show(IDS_UNDEFINED_ERROR, MB_OK, 0);
    CAppMessageBox::Show(&tool, u"over a tool", MB_OKCANCEL);
    CAppMessageBox::Show(static_cast<CWnd*>(nullptr), IDS_UNDEFINED_ERROR, MB_RETRYCANCEL);

    CAppMessageBox::Lock(true);
    CAppMessageBox::Show(u"locked", MB_OK, 0);
    CAppMessageBox::Lock(false);
    const auto replay = [](const CString*, int* answer)
    {
        *answer = IDYES;
        return true;
    };
    CMacroOps::InitFunctions(nullptr, replay, {}, {}, {}, {}, {}, {}, {});
    CMacroOps::SetReplaying(true);
    CAppMessageBox::Show(u"by a macro", MB_YESNO, 0);

    EXPECT_EQ(ReadLog(), "CAppMessageBox::Show(100 % of %1?)\r\n"
                         "Box \"100 % of %1?\" is answered No without a user\r\n"
                         "CAppMessageBox::Show(Undefined error)\r\n"
                         "Box \"Undefined error\" is answered OK without a user\r\n"
                         "CAppMessageBox::Show(over a tool)\r\n"
                         "Box \"over a tool\" is answered Cancel without a user\r\n"
                         "CAppMessageBox::Show(Undefined error)\r\n"
                         "Box \"Undefined error\" is answered Cancel without a user\r\n"
                         "CAppMessageBox::Show(locked)\r\n"
                         "CAppMessageBox::Show(by a macro)\r\n");
}

} // namespace
} // namespace utility
