#include "frame/Service.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/Clock.h"
#include "platform/system/SystemMessage.h"
#include "platform/system/process/Process.h"
#include "platform/system/process/Services.h"

#include "support/ChildProcess.h"
#include "support/ServiceManagerStandIn.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace utility
{

namespace
{

namespace fs = std::filesystem;
using CCalls = std::vector<std::string>;

constexpr char16_t BOARD[] = u"board";
constexpr char UNIT[] = "board.service";

CStandInUnit InState(const char* state)
{
    CStandInUnit unit;
    unit.m_ActiveState = state;
    return unit;
}

CStandInUnit WithFileState(const char* state)
{
    CStandInUnit unit;
    unit.m_FileState = state;
    return unit;
}

/// Each look at the clock finds that a minute has gone by.
class CRunawayClock
{
public:
    CRunawayClock() { SetClockSource(&SOURCE); }
    ~CRunawayClock() { SetClockSource(nullptr); }
    CRunawayClock(const CRunawayClock&) = delete;
    CRunawayClock& operator=(const CRunawayClock&) = delete;

private:
    static std::uint64_t Ticks()
    {
        static std::uint64_t ticks = 0;
        return ticks += 60000;
    }

    static constexpr CClockSource SOURCE{CoFileTimeNow, Ticks};
};

class ServiceTest : public testing::Test
{
protected:
    DWORD StartType()
    {
        DWORD type = 0;
        EXPECT_EQ(CService::GetStartType(nullptr, BOARD, type), ERROR_SUCCESS);
        return type;
    }

    CServiceManagerStandIn m_Manager;
};

} // namespace

TEST_F(ServiceTest, StatesOfTheManagerAreToldApart)
{
    const struct
    {
        const char* m_State;
        bool m_IsRunning;
    } CASES[] = {
        {"active", true},    {"reloading", true}, {"activating", false},  {"deactivating", false},
        {"inactive", false}, {"failed", false},   {"maintenance", false}, {"unheard-of", false},
    };
    for (const auto& [state, isRunning] : CASES)
    {
        SCOPED_TRACE(state);
        m_Manager.SetUnit(UNIT, InState(state));
        EXPECT_TRUE(CService::IsInstalled(nullptr, BOARD));
        EXPECT_EQ(CService::IsRunning(nullptr, BOARD), isRunning);
    }
    EXPECT_FALSE(CService::IsInstalled(nullptr, u"absent"));
    EXPECT_EQ(GetLastError(), ERROR_SERVICE_DOES_NOT_EXIST);
    EXPECT_FALSE(CService::IsRunning(nullptr, u"absent"));
}

TEST_F(ServiceTest, StopWaitsUntilTheServiceHasStopped)
{
    CStandInUnit unit = InState("active");
    unit.m_StopStates = {"active", "active", "deactivating", "deactivating", "inactive"};
    m_Manager.SetUnit(UNIT, unit);

    EXPECT_EQ(CService::Stop(nullptr, BOARD), ERROR_SUCCESS);
    EXPECT_EQ(m_Manager.GetUnit(UNIT).m_ActiveState, "inactive");
    EXPECT_EQ(m_Manager.TakeCalls(),
              (CCalls{"LoadUnit board.service", "Subscribe", "StopUnit board.service"}));

    unit.m_StopStates = {"failed"}; // it ended by a signal: stopped all the same
    m_Manager.SetUnit(UNIT, unit);
    EXPECT_EQ(CService::Stop(nullptr, BOARD), ERROR_SUCCESS);
}

TEST_F(ServiceTest, StopOfAStoppedServiceOrdersNothing)
{
    m_Manager.SetUnit(UNIT, InState("inactive"));
    EXPECT_EQ(CService::Stop(nullptr, BOARD), ERROR_SUCCESS);
    EXPECT_EQ(m_Manager.TakeCalls(), CCalls{"LoadUnit board.service"});
}

TEST_F(ServiceTest, StopThatNeverEndsTimesOut)
{
    CStandInUnit unit = InState("active");
    unit.m_StopStates = {"deactivating"};
    m_Manager.SetUnit(UNIT, unit);

    const CRunawayClock clock;
    EXPECT_EQ(CService::Stop(nullptr, BOARD), WAIT_TIMEOUT);
    EXPECT_EQ(CService::Uninstall(nullptr, BOARD), WAIT_TIMEOUT); // and it stays
}

TEST_F(ServiceTest, StartOrdersTheStart)
{
    m_Manager.SetUnit(UNIT, InState("inactive"));
    EXPECT_EQ(CService::Start(nullptr, u"board.service"), ERROR_SUCCESS);
    EXPECT_TRUE(CService::IsRunning(nullptr, BOARD));
    EXPECT_EQ(CService::Start(nullptr, BOARD), ERROR_SUCCESS); // it runs: nothing is left to do

    m_Manager.SetUnit(UNIT, WithFileState("masked"));
    EXPECT_EQ(CService::Start(nullptr, BOARD), ERROR_SERVICE_DISABLED);
    EXPECT_EQ(CService::Start(nullptr, u"absent"), ERROR_SERVICE_DOES_NOT_EXIST);
}

TEST_F(ServiceTest, StartTypesAreReadAndSet)
{
    const struct
    {
        const char* m_State;
        DWORD m_Type;
    } CASES[] = {
        {"enabled", 2},  {"enabled-runtime", 2}, {"disabled", 3},       {"static", 3},
        {"indirect", 3}, {"masked", 4},          {"masked-runtime", 4},
    };
    for (const auto& [state, type] : CASES)
    {
        SCOPED_TRACE(state);
        m_Manager.SetUnit(UNIT, WithFileState(state));
        EXPECT_EQ(StartType(), type);
    }

    m_Manager.SetUnit(UNIT, WithFileState("disabled"));
    for (const DWORD type : {2U, 4U, 3U, 4U, 2U, 3U})
    {
        SCOPED_TRACE(type);
        EXPECT_EQ(CService::SetStartupType(nullptr, BOARD, type), ERROR_SUCCESS);
        EXPECT_EQ(StartType(), type);
    }
    for (const DWORD type : {0U, 1U, 5U})
        EXPECT_EQ(CService::SetStartupType(nullptr, BOARD, type), ERROR_INVALID_PARAMETER);

    m_Manager.SetUnit(UNIT, WithFileState("static")); // never comes with the system
    EXPECT_EQ(CService::SetStartupType(nullptr, BOARD, 2), ERROR_NOT_SUPPORTED);
    DWORD preset = 7;
    EXPECT_EQ(CService::GetStartType(nullptr, u"absent", preset), ERROR_SERVICE_DOES_NOT_EXIST);
    EXPECT_EQ(preset, 7U);
}

TEST_F(ServiceTest, InstalledServiceIsThereUntilItIsUninstalled)
{
    ASSERT_EQ(CService::Install(nullptr, BOARD, u"Board 100%", 2, u"\\bin\\sh",
                                u"-c \"echo $HOME 5%\\n\" \\ x", u"Keeps\nboards\\"),
              ERROR_SUCCESS);
    EXPECT_EQ(m_Manager.GetUnitFolder().Read(u"board.service"),
              "[Unit]\n"
              "Description=Keeps boards\n"
              "\n"
              "[Service]\n"
              "Type=exec\n"
              "ExecStart=:\"/bin/sh\" \"-c\" \"echo $HOME 5%%\\\\n\" \"\\\\\" \"x\"\n"
              "\n"
              "[Install]\n"
              "WantedBy=multi-user.target\n");
    EXPECT_EQ(StartType(), 2U);
    EXPECT_EQ(CService::Install(nullptr, BOARD, u"Board", 2), ERROR_SERVICE_EXISTS);

    EXPECT_EQ(CService::Start(nullptr, BOARD), ERROR_SUCCESS);
    m_Manager.TakeCalls();
    EXPECT_EQ(CService::Uninstall(nullptr, BOARD), ERROR_SUCCESS);
    EXPECT_EQ(m_Manager.TakeCalls(),
              (CCalls{"LoadUnit board.service", "Subscribe", "StopUnit board.service",
                      "LoadUnit board.service", "UnmaskUnitFiles board.service",
                      "DisableUnitFiles board.service", "Reload"}));
    EXPECT_FALSE(CService::IsInstalled(nullptr, BOARD));
    EXPECT_TRUE(m_Manager.GetUnitFolder().List().empty());
    EXPECT_EQ(CService::Uninstall(nullptr, BOARD), ERROR_SERVICE_DOES_NOT_EXIST);
}

TEST_F(ServiceTest, RunningProgramIsInstalledWithArgumentsThatFit)
{
    const CString own = GetModuleFileNameW();
    const auto line = [&]
    {
        const std::string text = m_Manager.GetUnitFolder().Read(u"board.service");
        const std::size_t start = text.find("ExecStart=");
        return text.substr(start, text.find('\n', start) - start);
    };
    const std::string alone = "ExecStart=:\"" + fs::read_symlink("/proc/self/exe").string() + "\"";

    const int room = 260 - own.GetLength() - 1;
    for (const int length : {1, room, room + 1})
    {
        SCOPED_TRACE(length);
        const std::string argument(static_cast<std::size_t>(length), 'x');
        const std::u16string given(argument.begin(), argument.end());
        ASSERT_EQ(CService::Install(nullptr, BOARD, u"Board", 3, u"", given.c_str()),
                  ERROR_SUCCESS);
        EXPECT_EQ(line(), length > room ? alone : alone + " \"" + argument + "\"");
        EXPECT_EQ(StartType(), 3U);
        ASSERT_EQ(CService::Uninstall(nullptr, BOARD), ERROR_SUCCESS);
    }
}

TEST_F(ServiceTest, FailedInstallLeavesNothingBehind)
{
    const struct
    {
        const char16_t* m_Name;
        const char16_t* m_Path;
        DWORD m_StartType;
        DWORD m_Code;
    } CASES[] = {
        {u"", u"\\bin\\sh", 2, ERROR_INVALID_NAME},
        {u"..\\board", u"\\bin\\sh", 2, ERROR_INVALID_NAME},
        {u"a/b", u"\\bin\\sh", 2, ERROR_INVALID_NAME},
        {u"my board", u"\\bin\\sh", 2, ERROR_INVALID_NAME},
        {BOARD, u"\\bin\\sh", 1, ERROR_INVALID_PARAMETER},
        {BOARD, u"\\bin\\no-such-program", 2, ERROR_FILE_NOT_FOUND},
        {BOARD, u"\\etc\\passwd", 2, ERROR_ACCESS_DENIED},
    };
    for (const auto& [name, path, startType, code] : CASES)
    {
        SCOPED_TRACE(testing::PrintToString(CString(path)));
        EXPECT_EQ(CService::Install(nullptr, name, u"Board", startType, path), code);
        EXPECT_EQ(GetLastError(), code);
    }
    EXPECT_TRUE(m_Manager.GetUnitFolder().List().empty());

    for (const char* member : {"Reload", "EnableUnitFiles"})
    {
        SCOPED_TRACE(member);
        CServiceManagerStandIn strict;
        strict.Refuse(member, "org.freedesktop.DBus.Error.AccessDenied");
        EXPECT_EQ(CService::Install(nullptr, BOARD, u"Board", 2, u"\\bin\\sh"),
                  ERROR_ACCESS_DENIED);
        EXPECT_TRUE(strict.GetUnitFolder().List().empty());
    }
}

TEST_F(ServiceTest, ServicesOfOthersAreNotUninstalled)
{
    m_Manager.SetUnit(UNIT, InState("inactive")); // known to the manager, without a file of ours
    EXPECT_EQ(CService::Uninstall(nullptr, BOARD), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(CService::IsInstalled(nullptr, BOARD));
}

TEST_F(ServiceTest, RefusalsOfTheManagerAreToldByCode)
{
    m_Manager.SetUnit(UNIT, InState("active"));
    const struct
    {
        const char* m_Error;
        DWORD m_Code;
    } CASES[] = {
        {"org.freedesktop.DBus.Error.AccessDenied", ERROR_ACCESS_DENIED},
        {"org.freedesktop.DBus.Error.InteractiveAuthorizationRequired", ERROR_ACCESS_DENIED},
        {"org.freedesktop.DBus.Error.InvalidArgs", ERROR_INVALID_PARAMETER},
        {"org.freedesktop.DBus.Error.ServiceUnknown", RPC_S_SERVER_UNAVAILABLE},
        {"org.freedesktop.DBus.Error.Spawn.ChildExited", RPC_S_SERVER_UNAVAILABLE},
        {"org.freedesktop.systemd1.SomethingElse", ERROR_GEN_FAILURE},
    };
    for (const auto& [error, code] : CASES)
    {
        SCOPED_TRACE(error);
        m_Manager.Refuse("StartUnit", error);
        m_Manager.Refuse("StopUnit", error);
        EXPECT_EQ(CService::Start(nullptr, BOARD), code);
        EXPECT_EQ(CService::Stop(nullptr, BOARD), code);
        EXPECT_EQ(GetLastError(), code);
    }
    m_Manager.Refuse("LoadUnit", "org.freedesktop.DBus.Error.AccessDenied");
    EXPECT_FALSE(CService::IsInstalled(nullptr, BOARD));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST_F(ServiceTest, ManagerThatDoesNotAnswerTimesOut)
{
    m_Manager.SetUnit(UNIT, InState("inactive"));
    m_Manager.Ignore("StartUnit");
    const CEnvironmentVariable timeOut("SYSTEMD_BUS_TIMEOUT", "50ms");
    EXPECT_EQ(CService::Start(nullptr, BOARD), ERROR_SEM_TIMEOUT);
}

TEST_F(ServiceTest, OtherMachinesAreNotReached)
{
    m_Manager.SetUnit(UNIT, InState("active"));
    for (const char16_t* own : {u"", u".", u"\\\\."})
        EXPECT_TRUE(CService::IsRunning(own, BOARD)) << testing::PrintToString(CString(own));
    EXPECT_FALSE(CService::IsRunning(u"\\\\elsewhere", BOARD));
    EXPECT_EQ(GetLastError(), ERROR_BAD_NETPATH);
    EXPECT_EQ(CService::Start(u"elsewhere", BOARD), ERROR_BAD_NETPATH);
}

TEST_F(ServiceTest, RightToMakeServicesIsThatOfTheirFolder)
{
    EXPECT_TRUE(CService::IsPermitted(nullptr, SC_MANAGER_CONNECT));
    EXPECT_TRUE(CService::IsPermitted(nullptr, SC_MANAGER_CREATE_SERVICE));

    const fs::path folder = m_Manager.GetUnitFolder().GetNativePath();
    fs::permissions(folder, fs::perms(0555));
    fs::permissions(m_Manager.GetBusFolder().GetNativePath(), fs::perms(0755));
    CChildProcess stranger(
        []
        {
            DropRights();
            if (!CService::IsPermitted(nullptr, SC_MANAGER_CONNECT))
                return 1;
            if (CService::IsPermitted(nullptr, SC_MANAGER_CREATE_SERVICE))
                return 2;
            return CService::Install(nullptr, BOARD, u"Board", 2, u"\\bin\\sh") ==
                           ERROR_ACCESS_DENIED
                       ? 0
                       : 3;
        });
    EXPECT_EQ(stranger.Wait(), 0);
    fs::permissions(folder, fs::perms(0755));
}

TEST(ServiceAbsenceTest, MachineWithoutAManagerSaysSo)
{
    const CServiceManagerStandIn bus(CServiceManagerStandIn::EStart::BusAlone);
    EXPECT_FALSE(CService::IsPermitted(nullptr, SC_MANAGER_CONNECT));
    EXPECT_EQ(GetLastError(), RPC_S_SERVER_UNAVAILABLE);

    const CEnvironmentVariable nowhere("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/no/such/bus");
    EXPECT_FALSE(CService::IsInstalled(nullptr, BOARD));
    EXPECT_EQ(CService::Start(nullptr, BOARD), RPC_S_SERVER_UNAVAILABLE);
    EXPECT_EQ(GetSystemMessage(GetLastError()), u"No manager of services answers on this system");
}

TEST(ServiceAbsenceTest, ProgramWithADisplayRunsAsNoService)
{
    const CEnvironmentVariable display("DISPLAY", ":0");
    EXPECT_FALSE(CService::RunningAsService());
}

} // namespace utility
