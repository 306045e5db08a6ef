#include "frame/AppInstance.h"
#include "frame/Application.h"
#include "frame/Evt.h"
#include "frame/InstanceEvents.h"
#include "frame/RunningProcess.h"
#include "platform/base/Encoding.h"
#include "platform/system/process/Handle.h"
#include "platform/system/window/LiveWindows.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WinApp.h"
#include "platform/system/window/Wnd.h"
#include "settings/AppRegistry.h"

#include "support/HostProcess.h"
#include "support/SettingsSandbox.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>

namespace utility
{
namespace
{

constexpr int HOST_COUNT = 20;
constexpr int PCB = 2;

int RepeatCount()
{
    return std::getenv("UTILITY_NIGHTLY") ? 50 : 2;
}

using CNumbers = std::map<DWORD, int>; // the instance by process

/// What any program sees of the hosts.
CNumbers ListHosts()
{
    CNumbers numbers;
    EnumWindows(
        [&numbers](const CLiveWindow& window)
        {
            numbers[window.m_ProcessId] = window.m_Instance;
            return true;
        });
    return numbers;
}

bool HasFileOf(DWORD process)
{
    const std::string begin = std::to_string(process) + "-";
    const std::filesystem::path runtime = std::getenv("XDG_RUNTIME_DIR");
    for (const auto& file : std::filesystem::directory_iterator(runtime / "utility" / "windows"))
    {
        if (file.path().filename().string().starts_with(begin))
            return true;
    }
    return false;
}

/// Hosts are "Boards" of "Test Makers", with instances enabled.
class AppInstanceProcessesTest : public testing::Test
{
protected:
    AppInstanceProcessesTest()
    {
        CApplication::SetCompanyName(u"Test Makers");
        CApplication::SetRegistryName(u"Boards");
        m_App.m_pszAppName = u"Boards";
        CAppRegistry(u"MultipleInstances").SetValue(u"Enabled", true);
    }
    ~AppInstanceProcessesTest() override { RemoveInstanceEvents(); }

    CSettingsSandbox m_Sandbox; // puts back what the constructor says
    CWinApp m_App;
};

std::vector<CHostProcess> StartTwenty()
{
    std::vector<CHostProcess> hosts;
    for (int number = 1; number <= HOST_COUNT; ++number)
        hosts.emplace_back(std::vector<std::string>{"-I" + std::to_string(number), "design"});
    for (CHostProcess& host : hosts)
        EXPECT_EQ(host.Hear(), "ready");
    return hosts;
}

void ExpectEachFindsTheBoardEditor(std::vector<CHostProcess>& hosts, const std::string& found)
{
    // All look at the same time.
    for (CHostProcess& host : hosts)
        host.Tell("find 2");
    for (CHostProcess& host : hosts)
        EXPECT_EQ(host.Hear(), found);
}

void ExpectEachFindsItsOther(std::vector<CHostProcess>& hosts)
{
    const std::string board = std::to_string(hosts[PCB - 1].GetId()) + " Boards:PCB - design";
    for (CHostProcess& host : hosts)
        host.Tell("other");
    for (std::size_t i = 0; i < hosts.size(); ++i)
    {
        const std::string answer = hosts[i].Hear();
        if (i == PCB - 1)
            EXPECT_TRUE(answer.ends_with(" Boards:SCM - design")) << answer;
        else
            EXPECT_EQ(answer, board);
    }
}

TEST_F(AppInstanceProcessesTest, TwentyStartedAtOnceFindEachOther)
{
    for (int round = 0; round < RepeatCount(); ++round)
    {
        SCOPED_TRACE(round);
        std::vector<CHostProcess> hosts = StartTwenty();
        CNumbers expected;
        for (int i = 0; i < HOST_COUNT; ++i)
            expected[hosts[static_cast<std::size_t>(i)].GetId()] = i + 1;
        EXPECT_EQ(ListHosts(), expected);
        ExpectEachFindsTheBoardEditor(hosts, "yes");
        ExpectEachFindsItsOther(hosts);

        CHostProcess board = std::move(hosts[PCB - 1]);
        hosts.erase(hosts.begin() + PCB - 1);
        board.Kill(); // dead, though nobody has taken note of it
        ExpectEachFindsTheBoardEditor(hosts, "no");
        expected.erase(board.GetId());
        EXPECT_EQ(ListHosts(), expected);
        EXPECT_FALSE(HasFileOf(board.GetId()));
    }
}

TEST_F(AppInstanceProcessesTest, ARunningHostIsFoundByItsProgramWithItsWindow)
{
    // A copy of a name that no test beside this one runs.
    const CTemporaryFolder folder;
    const CString name = folder.GetPath().Mid(folder.GetPath().ReverseFind(u'\\') + 1);
    const std::filesystem::path program = folder.GetNativePath() / ToUtf8(name.View());
    std::filesystem::copy_file(UTILITY_INSTANCE_HOST, program);
    CHostProcess host({"-I2", "design"}, program);
    ASSERT_EQ(host.Hear(), "ready");
    CRunningProcess running;
    ASSERT_TRUE(running.Find(name));
    EXPECT_EQ(running.GetProcessID(), host.GetId());
    ASSERT_NE(running.GetWindow(), nullptr);
    EXPECT_EQ(GetWindowText(running.GetWindow()), u"Boards:PCB - design");

    host.Kill();
    EXPECT_FALSE(running.Find(name)) << "neither program nor window is kept";
    EXPECT_EQ(running.GetWindow(), nullptr);
}

class CListener : public CEvt
{
public:
    CListener() { Register(u"Test.Saved", this, &CListener::OnEvent); }
    unsigned char OnEvent(LPARAM a, LPARAM b)
    {
        m_Values.emplace_back(a, b);
        return 9;
    }
    std::vector<std::pair<LPARAM, LPARAM>> m_Values;
};

using CValues = std::vector<std::pair<LPARAM, LPARAM>>;

TEST_F(AppInstanceProcessesTest, EventsReachTheOtherInstancesOfTheApplication)
{
    CListener listener;
    CHostProcess first({"-I1"});
    CHostProcess second({"-I2"});
    ASSERT_EQ(first.Hear(), "ready");
    ASSERT_EQ(second.Hear(), "ready");
    InstallInstanceEvents();
    CWnd window; // only a program with a window is heard of
    ASSERT_TRUE(window.Create(u"Frame", u"Test", 0, nullptr));

    EXPECT_EQ(CEvt::SendToAllInstances(u"test.saved", 7, -8), 9);
    EXPECT_EQ(listener.m_Values, (CValues{{7, -8}})) << "once here, by its own sender";
    EXPECT_EQ(first.Ask("await"), "event 7 -8");
    EXPECT_EQ(second.Ask("await"), "event 7 -8");

    EXPECT_EQ(first.Ask("send Test.Saved 1 2"), "1");
    GetMessageLoop().RunUntil([&listener] { return listener.m_Values.size() == 2; }, INFINITE);
    EXPECT_EQ(listener.m_Values.back(), std::make_pair(LPARAM(1), LPARAM(2)));
    EXPECT_EQ(second.Ask("await"), "event 1 2");
    EXPECT_EQ(first.Ask("await"), "event 1 2");
}

TEST_F(AppInstanceProcessesTest, EventsOfAnotherApplicationStayAway)
{
    CHostProcess host({"-I1"});
    ASSERT_EQ(host.Hear(), "ready");
    InstallInstanceEvents();
    CWnd window;
    ASSERT_TRUE(window.Create(u"Frame", u"Test", 0, nullptr));

    m_App.m_pszAppName = u"Simulator";
    CEvt::SendToAllInstances(u"Test.Saved", 1, 1);
    EXPECT_EQ(SendLiveEvent(u"Test.Saved", 1, 1), 0);
    m_App.m_pszAppName = u"Boards";
    EXPECT_EQ(SendLiveEvent(u"", 1, 1), 0);
    EXPECT_EQ(SendLiveEvent(CString(u'x', 256), 1, 1), 0);
    EXPECT_EQ(SendLiveEvent(u"Test.Saved", 2, 2), 1);
    EXPECT_EQ(host.Ask("await"), "event 2 2");
}

} // namespace
} // namespace utility
