#pragma once

#include "support/EnvironmentVariable.h"
#include "support/ServerProcess.h"
#include "support/TemporaryFolder.h"

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

struct sd_bus;

namespace utility
{

/// What the stand-in tells of a service.
struct CStandInUnit
{
    std::string m_ActiveState = "inactive";
    std::string m_FileState = "disabled"; // "static": has nothing that could be enabled
    std::string m_LoadState = "loaded";

    /// How a stop goes on: the state shown at each look, the last one for ever.
    std::vector<std::string> m_StopStates = {"active", "deactivating", "inactive"};

    bool m_IsStopping = false;
    bool m_IsFile = false; // gone with its file
};

/// A private bus in a temporary folder, and on it, on a thread of its own, what stands for the
/// system's manager of services. While it lives, the library's own calls go there.
///
/// Services are those put in by `SetUnit` and the files "*.service" in its unit folder. Each look
/// at a state is answered by a signal of change, too, so nobody has to wait for the next look.
class CServiceManagerStandIn
{
public:
    enum class EStart
    {
        Manager,
        BusAlone // nobody is the manager
    };
    explicit CServiceManagerStandIn(EStart start = EStart::Manager);
    ~CServiceManagerStandIn();
    CServiceManagerStandIn(const CServiceManagerStandIn&) = delete;
    CServiceManagerStandIn& operator=(const CServiceManagerStandIn&) = delete;

    const CTemporaryFolder& GetBusFolder() const { return m_BusFolder; }
    const CTemporaryFolder& GetUnitFolder() const { return m_UnitFolder; }

    void SetUnit(const std::string& name, const CStandInUnit& unit);
    CStandInUnit GetUnit(const std::string& name);

    /// The operations called since, in order, and the service they name: "StopUnit board.service".
    std::vector<std::string> TakeCalls();

    /// The next calls of an operation fail with an error of the bus, by its name.
    void Refuse(const std::string& member, const std::string& error);
    /// The next calls of an operation are never answered.
    void Ignore(const std::string& member);

    /// The bus and all on it are gone from now on.
    void EndBus();

private:
    friend struct CStandInCalls; // the bus calls these

    void StartBus();
    void JoinBus();
    void Serve();
    CStandInUnit* Find(const std::string& name);
    void ShowNextState(CStandInUnit& unit);

    CTemporaryFolder m_BusFolder;
    CTemporaryFolder m_UnitFolder;
    std::unique_ptr<CServerProcess> m_Daemon;
    int m_DaemonOutput = -1;
    sd_bus* m_Bus = nullptr;
    std::thread m_Thread;

    std::mutex m_Lock;                           // over what follows
    std::map<std::string, CStandInUnit> m_Units; // by name
    std::map<std::string, std::string> m_Refusals;
    std::set<std::string> m_Ignored;
    std::vector<std::string> m_Calls;

    CEnvironmentVariable m_Address;
    CEnvironmentVariable m_UnitPath;
};

} // namespace utility
