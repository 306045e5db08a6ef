#include "files/StartupFolder.h"

#include "platform/system/file/FileCalls.h"

#include "support/ChildProcess.h"
#include "support/EnvironmentVariable.h"
#include "support/PrintText.h"
#include "support/SettingsSandbox.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>

using namespace utility;

namespace
{

/// The current folder is a process's own, so each start and stop of the application is a process.
class StartupFolderTest : public testing::Test
{
protected:
    /// Where an application begun in `folder` finds itself after `run`, stored under "Reached".
    CString RunIn(const CString& folder, const std::function<void(CStartupFolder&)>& run)
    {
        const int result = CChildProcess(
                               [&]
                               {
                                   CStartupFolder startup;
                                   if (!SetCurrentDirectoryW(folder))
                                       return 1;
                                   run(startup);
                                   const CString reached = GetCurrentDirectoryW();
                                   return startup.SetValue(u"Reached", reached) ? 0 : 2;
                               })
                               .Wait();
        EXPECT_EQ(result, 0);
        CString reached;
        CStartupFolder().GetValue(u"Reached", reached);
        return reached;
    }

    CSettingsSandbox m_Settings;
    CTemporaryFolder m_Folder;
    CString m_Here = m_Folder.MakeFolder(u"here");
    CString m_There = m_Folder.MakeFolder(u"there");
};

void Restore(CStartupFolder& startup)
{
    startup.RestoreState();
}

TEST_F(StartupFolderTest, EachTypeStartsInItsFolder)
{
    struct CCase
    {
        EStartupFolderType m_Type;
        bool m_GoesThere;  // at start
        bool m_IsFollowed; // the folder at the end is where the next start begins
    };
    for (const CCase& test : {CCase{EStartupFolderType::Unchanged, false, false},
                              CCase{EStartupFolderType::Named, true, false},
                              CCase{EStartupFolderType::Last, true, true}})
    {
        SCOPED_TRACE(static_cast<int>(test.m_Type));
        CStartupFolder startup;
        startup.SetType(test.m_Type);
        startup.SetFolderName(m_There);

        EXPECT_EQ(RunIn(m_Here, Restore), test.m_GoesThere ? m_There : m_Here);
        RunIn(m_Here, [](CStartupFolder& state) { state.SaveState(); });

        EXPECT_EQ(startup.GetFolderName(), test.m_IsFollowed ? m_Here : m_There);
        EXPECT_EQ(startup.GetType(), test.m_Type);
    }
}

TEST_F(StartupFolderTest, NothingStoredLeavesTheStartAlone)
{
    EXPECT_EQ(CStartupFolder().GetType(), EStartupFolderType::Unchanged);
    EXPECT_EQ(CStartupFolder().GetFolderName(), u"");
    EXPECT_EQ(RunIn(m_Here, Restore), m_Here);
}

TEST_F(StartupFolderTest, VariablesAreExpandedAndAnAbsentFolderChangesNothing)
{
    const CEnvironmentVariable variable("UTILITY_TEST_BASE", "there");
    CStartupFolder startup;
    startup.SetType(EStartupFolderType::Named);

    startup.SetFolderName(m_Folder.PathOf(u"%UTILITY_TEST_BASE%"));
    EXPECT_EQ(RunIn(m_Here, Restore), m_There);
    for (const char16_t* absent : {u"no", u"%UTILITY_TEST_NONE%"})
    {
        startup.SetFolderName(m_Folder.PathOf(absent));
        EXPECT_EQ(RunIn(m_Here, Restore), m_Here);
    }
}

TEST_F(StartupFolderTest, AFolderTooLongForItsBufferIsNotStored)
{
    const CString deep = m_Folder.MakeFolder(CString(u'd', 150) + u"\\" + CString(u'e', 150));
    CStartupFolder startup;
    startup.SetType(EStartupFolderType::Last);
    startup.SetFolderName(m_There);

    RunIn(deep, [](CStartupFolder& state) { state.SaveState(); });

    EXPECT_EQ(startup.GetFolderName(), m_There);
}

} // namespace
