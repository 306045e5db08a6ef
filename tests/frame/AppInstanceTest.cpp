#include "frame/AppInstance.h"

#include "frame/Application.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/window/WinApp.h"
#include "platform/system/window/Wnd.h"
#include "settings/AppRegistry.h"

#include "support/ChildProcess.h"
#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>

namespace utility
{
namespace
{

constexpr int SCM = 1;
constexpr int PCB = 2;

/// Settings are read once a process, so each test has one of its own.
class AppInstanceTest : public testing::Test
{
protected:
    AppInstanceTest()
    {
        CApplication::SetCompanyName(u"Test Makers");
        CApplication::SetRegistryName(u"Boards");
        m_App.m_pszAppName = u"Boards";
    }

    template <typename TValue>
    void Preset(const char16_t* name, TValue value) const
    {
        CAppRegistry(u"MultipleInstances").SetValue(name, value);
    }
    template <typename TValue>
    TValue Stored(const char16_t* name, TValue preset) const
    {
        CAppRegistry(u"MultipleInstances").GetValue(name, preset);
        return preset;
    }

    CWinApp m_App;
};

TEST_F(AppInstanceTest, DefaultsStandWhereNothingIsStored)
{
    if (!IsInFreshProcess())
        return;

    EXPECT_FALSE(CAppInstance::GetEnabled());
    EXPECT_FALSE(CAppInstance::BeenEnabled());
    EXPECT_TRUE(CAppInstance::GetExitAll());
    EXPECT_TRUE(CAppInstance::GetOpenAllOnStartup());
    EXPECT_FALSE(CAppInstance::IsMultiScreen());
    EXPECT_EQ(CAppInstance::GetInstance(), 0);
    EXPECT_EQ(CAppInstance::GetWinOther(), 1);
    EXPECT_EQ(CAppInstance::GetWinPcb(), 2);
    EXPECT_EQ(CAppInstance::GetWinScm(), 1);
    EXPECT_FALSE(CAppInstance::IsDeferred());
}

TEST_F(AppInstanceTest, SettingsAreReadOnceAndWrittenAtOnce)
{
    if (!IsInFreshProcess())
        return;
    Preset(u"ExitAll", false);
    Preset(u"OpenAll", false);
    Preset(u"WinOther", 5);
    EXPECT_FALSE(CAppInstance::GetExitAll());
    Preset(u"WinOther", 6);
    EXPECT_EQ(CAppInstance::GetWinOther(), 5) << "another program's change waits for our restart";
    EXPECT_FALSE(CAppInstance::GetOpenAllOnStartup());

    CAppInstance::SetExitAll(true);
    CAppInstance::SetOpenAllOnStartup(true);
    CAppInstance::SetWinOther(7);
    CAppInstance::SetWinPcb(8);
    CAppInstance::SetWinScm(9);
    EXPECT_TRUE(Stored(u"ExitAll", false));
    EXPECT_TRUE(Stored(u"OpenAll", false));
    EXPECT_EQ(Stored(u"WinOther", 0), 7);
    EXPECT_EQ(Stored(u"WinPcb", 0), 8);
    EXPECT_EQ(Stored(u"WinScm", 0), 9);
}

TEST_F(AppInstanceTest, EnablingIsRememberedForEver)
{
    if (!IsInFreshProcess())
        return;
    CAppInstance::SetEnabled(true);
    EXPECT_TRUE(Stored(u"Enabled", false));
    EXPECT_TRUE(Stored(u"BeenEnabled", false));

    CAppInstance::SetEnabled(false);
    EXPECT_FALSE(Stored(u"Enabled", true));
    EXPECT_TRUE(Stored(u"BeenEnabled", false));
    EXPECT_FALSE(CAppInstance::GetEnabled());
    EXPECT_TRUE(CAppInstance::BeenEnabled());
}

TEST_F(AppInstanceTest, NamesTellTheBoardEditorFromTheOthers)
{
    if (!IsInFreshProcess())
        return;
    CAppInstance::SetInstance(PCB);
    EXPECT_EQ(CAppInstance::GetName(), u"Boards") << "instances are off";
    EXPECT_EQ(CAppInstance::GetOtherName(), u"Boards");

    CAppInstance::SetEnabled(true);
    const struct
    {
        int m_Own;
        const char16_t* m_Name;
        const char16_t* m_OtherName;
        int m_OtherWin;
    } rows[] = {
        {0, u"Boards", u"Boards:PCB", PCB},
        {SCM, u"Boards:SCM", u"Boards:PCB", PCB},
        {PCB, u"Boards:PCB", u"Boards:SCM", SCM},
        {7, u"Boards:SCM", u"Boards:PCB", PCB},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Own);
        CAppInstance::SetInstance(row.m_Own);
        EXPECT_TRUE(CAppInstance::ThisInstance(row.m_Own));
        EXPECT_FALSE(CAppInstance::ThisInstance(row.m_Own + 1));
        EXPECT_EQ(CAppInstance::GetName(), row.m_Name);
        EXPECT_EQ(CAppInstance::GetName(row.m_Own), row.m_Name);
        EXPECT_EQ(CAppInstance::GetOtherName(), row.m_OtherName);
        EXPECT_EQ(CAppInstance::GetOtherWin(), row.m_OtherWin);
    }
}

TEST_F(AppInstanceTest, KeysAreOwnFromTheSecondInstanceOn)
{
    if (!IsInFreshProcess())
        return;
    CAppInstance::SetInstance(PCB);
    EXPECT_EQ(CAppInstance::GetKey(u"Windows", false), u"Windows") << "instances are off";

    CAppInstance::SetEnabled(true);
    CAppRegistry(u"MultipleInstances\\Boards:PCB\\There").SetValue(u"x", 1);
    const struct
    {
        int m_Instance;
        const char16_t* m_Key;
        bool m_MustExist;
        const char16_t* m_Expected;
    } rows[] = {
        {0, u"Windows", false, u"Windows"},
        {SCM, u"Windows", false, u"Windows"},
        {PCB, u"Windows", false, u"MultipleInstances\\Boards:PCB\\Windows"},
        {PCB, u"Windows", true, u"Windows"},
        {PCB, u"There", true, u"MultipleInstances\\Boards:PCB\\There"},
        {PCB, u"MultipleInstances\\x", false, u"MultipleInstances\\x"},
        {PCB, u"MultipleInstances\\x", true, u"MultipleInstances\\x"},
        {3, u"Windows", false, u"MultipleInstances\\Boards:SCM\\Windows"},
        {3, u"There", true, u"There"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(std::to_string(row.m_Instance) + (row.m_MustExist ? " read" : " write"));
        CAppInstance::SetInstance(row.m_Instance);
        EXPECT_EQ(CAppInstance::GetKey(row.m_Key, row.m_MustExist), row.m_Expected);
    }
}

TEST_F(AppInstanceTest, DeferredValuesChangeNothingButTheStore)
{
    if (!IsInFreshProcess())
        return;
    CAppInstance::SetEnabled(true);
    CAppInstance::SetInstance(PCB);

    CAppInstance::SetUseDeferredValues(true);
    CAppInstance::SetWinPcb(5);
    CAppInstance::SetEnabled(false);
    CAppInstance::SetMultiScreen(true);
    CAppInstance::SetDeferred();
    EXPECT_EQ(CAppInstance::GetWinPcb(), 5);
    EXPECT_FALSE(CAppInstance::GetEnabled());
    EXPECT_EQ(Stored(u"WinPcb", 0), 5) << "the store is written at once";
    EXPECT_FALSE(Stored(u"Enabled", true));
    // The process goes on as what it is.
    EXPECT_EQ(CAppInstance::GetInstance(), PCB);
    EXPECT_EQ(CAppInstance::GetName(), u"Boards:PCB");
    EXPECT_EQ(CAppInstance::GetOtherName(), u"Boards:SCM");
    EXPECT_EQ(CAppInstance::GetKey(u"Windows", false), u"MultipleInstances\\Boards:PCB\\Windows");

    CAppInstance::SetUseDeferredValues(false);
    EXPECT_EQ(CAppInstance::GetWinPcb(), PCB);
    EXPECT_TRUE(CAppInstance::GetEnabled());
    EXPECT_FALSE(CAppInstance::IsMultiScreen());
    EXPECT_TRUE(CAppInstance::IsDeferred());
}

TEST_F(AppInstanceTest, OtherDesignsOpenElsewhereIfTheirInstanceIsAnother)
{
    if (!IsInFreshProcess())
        return;
    CAppInstance::SetInstance(PCB);
    CAppInstance::SetWinOther(SCM);
    EXPECT_FALSE(CAppInstance::OtherDocsInOtherInstance()) << "instances are off";
    CAppInstance::SetEnabled(true);
    EXPECT_TRUE(CAppInstance::OtherDocsInOtherInstance());
    CAppInstance::SetWinOther(PCB);
    EXPECT_FALSE(CAppInstance::OtherDocsInOtherInstance());
}

TEST_F(AppInstanceTest, WindowsAreFoundByTheNameAsItStandsInTheirTitles)
{
    if (!IsInFreshProcess())
        return;
    CWnd window;
    ASSERT_TRUE(window.Create(u"Frame", u"boards:pcb - a.pcb", 0, nullptr));
    CAppInstance::SetEnabled(true);
    CAppInstance::SetInstance(SCM);
    EXPECT_FALSE(CAppInstance::FindInstance(PCB)) << "capitals count";
    EXPECT_EQ(CAppInstance::FindOtherWindow(), nullptr);

    window.SetWindowText(u"a.pcb - Boards:PCB");
    EXPECT_TRUE(CAppInstance::FindInstance(PCB));
    EXPECT_FALSE(CAppInstance::FindInstance(SCM));
    EXPECT_TRUE(CAppInstance::FindInstance(0)) << "no instance bears the application's name alone";
    EXPECT_EQ(CAppInstance::FindOtherWindow(), window.GetSafeHwnd()) << "the own window counts";

    window.SetWindowText(CString(u'x', 117) + u"Boards:PCB");
    EXPECT_TRUE(CAppInstance::FindInstance(PCB));
    window.SetWindowText(CString(u'x', 118) + u"Boards:PCB");
    EXPECT_FALSE(CAppInstance::FindInstance(PCB)) << "127 units are looked at";
}

TEST_F(AppInstanceTest, LaunchPassesItsArgumentsWithoutWaiting)
{
    const CScriptedUser user;
    const CTemporaryFolder folder;
    const std::string pipe = (folder.GetNativePath() / "told").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    m_App.m_pszExeName = folder.MakeFile(
        u"my editor", "#!/bin/sh\nfor word; do echo \"<$word>\"; done > '" + pipe + "'\n");
    std::filesystem::permissions(folder.GetNativePath() / "my editor",
                                 std::filesystem::perms(0700));

    ASSERT_TRUE(CAppInstance::Launch(12));
    // The program stands until somebody reads, so nobody can have waited for its end.
    std::ifstream told(pipe);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(told), {}), "<-L>\n<-I12>\n");
    EXPECT_EQ(user.GetWaitDepth(), 0);
}

TEST_F(AppInstanceTest, LaunchTellsWhyAProgramDoesNotStart)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"plain", "#!/bin/sh\n");
    folder.MakeFile(u"no program", "\x01\x02");
    std::filesystem::permissions(folder.GetNativePath() / "no program",
                                 std::filesystem::perms(0700));
    const struct
    {
        CString m_ExeName;
        DWORD m_Error;
    } rows[] = {
        {folder.PathOf(u"absent"), ERROR_FILE_NOT_FOUND},
        {u"no-such-program", ERROR_FILE_NOT_FOUND},
        {folder.PathOf(u"absent\\pcb"), ERROR_PATH_NOT_FOUND},
        {folder.PathOf(u"plain"), ERROR_ACCESS_DENIED},
        {folder.PathOf(u"no program"), ERROR_BAD_EXE_FORMAT},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Error);
        m_App.m_pszExeName = row.m_ExeName;
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(CAppInstance::Launch(PCB));
        EXPECT_EQ(GetLastError(), row.m_Error);
    }
}

} // namespace
} // namespace utility
