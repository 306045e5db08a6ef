#include "support/ServiceManagerStandIn.h"

#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <sys/stat.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr char NAME[] = "org.freedesktop.systemd1";
constexpr char PATH[] = "/org/freedesktop/systemd1";
constexpr char UNITS[] = "/org/freedesktop/systemd1/unit";
constexpr char MANAGER[] = "org.freedesktop.systemd1.Manager";
constexpr char UNIT[] = "org.freedesktop.systemd1.Unit";
constexpr char NO_JOB[] = "/";
constexpr char STOP_JOB[] = "/org/freedesktop/systemd1/job/7";
constexpr char START_JOB[] = "/org/freedesktop/systemd1/job/8";

std::string AddressIn(const CTemporaryFolder& folder)
{
    return "unix:path=" + (folder.GetNativePath() / "bus").string();
}

std::string Configuration(const CTemporaryFolder& folder)
{
    return "<busconfig><type>system</type><listen>" + AddressIn(folder) +
           "</listen><auth>EXTERNAL</auth><policy context='default'><allow user='*'/>"
           "<allow own='*'/><allow send_destination='*'/><allow receive_sender='*'/></policy>"
           "</busconfig>";
}

void Require(int result, const char* what)
{
    if (result < 0)
        throw std::runtime_error(std::string("the private bus: ") + what);
}

std::string UnitOfPath(const char* path)
{
    char* name = nullptr;
    ::sd_bus_path_decode(path, UNITS, &name);
    const std::string unit = name ? name : "";
    ::free(name);
    return unit;
}

} // namespace

/// What the bus calls, with the stand-in as user data.
struct CStandInCalls
{
    /// Notes the call. True if it ends here: refused, or left without an answer.
    static bool Enter(CServiceManagerStandIn& self, sd_bus_message* message,
                      const std::string& unit, sd_bus_error* error, int& result)
    {
        const std::string member = ::sd_bus_message_get_member(message);
        self.m_Calls.push_back(unit.empty() ? member : member + " " + unit);
        const auto refusal = self.m_Refusals.find(member);
        if (refusal != self.m_Refusals.end())
            result = ::sd_bus_error_set(error, refusal->second.c_str(), "refused by the test");
        else
            result = 1; // taken, and answered later
        return refusal != self.m_Refusals.end() || self.m_Ignored.contains(member);
    }

    static int LoadUnit(sd_bus_message* message, void* data, sd_bus_error* error)
    {
        auto& self = *static_cast<CServiceManagerStandIn*>(data);
        const std::scoped_lock lock(self.m_Lock);
        const char* name = nullptr;
        ::sd_bus_message_read(message, "s", &name);
        int result = 0;
        if (Enter(self, message, name, error, result))
            return result;
        char* path = nullptr;
        ::sd_bus_path_encode(UNITS, name, &path);
        result = ::sd_bus_reply_method_return(message, "o", path);
        ::free(path);
        return result;
    }

    /// An order to start or stop, by the operation's name.
    static int Order(sd_bus_message* message, void* data, sd_bus_error* error)
    {
        auto& self = *static_cast<CServiceManagerStandIn*>(data);
        const std::scoped_lock lock(self.m_Lock);
        const char* name = nullptr;
        const char* mode = nullptr;
        ::sd_bus_message_read(message, "ss", &name, &mode);
        int result = 0;
        if (Enter(self, message, name, error, result))
            return result;
        CStandInUnit* unit = self.Find(name);
        if (!unit)
            return ::sd_bus_error_set(error, "org.freedesktop.systemd1.NoSuchUnit", name);
        const bool isStop = std::string(::sd_bus_message_get_member(message)) == "StopUnit";
        if (!isStop && unit->m_FileState == "masked")
            return ::sd_bus_error_set(error, "org.freedesktop.systemd1.UnitMasked", name);
        unit->m_IsStopping = isStop;
        if (!isStop)
            unit->m_ActiveState = "active";
        return ::sd_bus_reply_method_return(message, "o", isStop ? STOP_JOB : START_JOB);
    }

    static int GetFileState(sd_bus_message* message, void* data, sd_bus_error* error)
    {
        auto& self = *static_cast<CServiceManagerStandIn*>(data);
        const std::scoped_lock lock(self.m_Lock);
        const char* name = nullptr;
        ::sd_bus_message_read(message, "s", &name);
        int result = 0;
        if (Enter(self, message, name, error, result))
            return result;
        const CStandInUnit* unit = self.Find(name);
        return unit ? ::sd_bus_reply_method_return(message, "s", unit->m_FileState.c_str())
                    : ::sd_bus_error_set(error, SD_BUS_ERROR_FILE_NOT_FOUND, name);
    }

    /// Enable, disable, mask or unmask one unit file.
    static int ChangeFile(sd_bus_message* message, void* data, sd_bus_error* error)
    {
        auto& self = *static_cast<CServiceManagerStandIn*>(data);
        const std::scoped_lock lock(self.m_Lock);
        const char* name = nullptr;
        ::sd_bus_message_read(message, "as", 1, &name);
        int result = 0;
        if (Enter(self, message, name, error, result))
            return result;
        const std::string member = ::sd_bus_message_get_member(message);
        CStandInUnit* unit = self.Find(name);
        const bool isStatic = unit && unit->m_FileState == "static";
        const bool isMasked = unit && unit->m_FileState == "masked";
        if (unit && member == "MaskUnitFiles")
            unit->m_FileState = "masked";
        else if (unit && !isStatic && isMasked == (member == "UnmaskUnitFiles"))
            unit->m_FileState = member == "EnableUnitFiles" ? "enabled" : "disabled";
        if (member == "EnableUnitFiles")
            return ::sd_bus_reply_method_return(message, "ba(sss)", isStatic ? 0 : 1, 0);
        return ::sd_bus_reply_method_return(message, "a(sss)", 0);
    }

    static int Nothing(sd_bus_message* message, void* data, sd_bus_error* error)
    {
        auto& self = *static_cast<CServiceManagerStandIn*>(data);
        const std::scoped_lock lock(self.m_Lock);
        int result = 0;
        if (Enter(self, message, "", error, result))
            return result;
        return ::sd_bus_reply_method_return(message, nullptr);
    }

    static int Version(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*,
                       sd_bus_error*)
    {
        return ::sd_bus_message_append(reply, "s", "252");
    }

    static int State(sd_bus* bus, const char* path, const char*, const char* property,
                     sd_bus_message* reply, void* data, sd_bus_error*)
    {
        auto& self = *static_cast<CServiceManagerStandIn*>(data);
        const std::scoped_lock lock(self.m_Lock);
        CStandInUnit* unit = self.Find(UnitOfPath(path));
        if (std::string(property) == "LoadState")
            return ::sd_bus_message_append(reply, "s",
                                           unit ? unit->m_LoadState.c_str() : "not-found");
        if (unit)
            self.ShowNextState(*unit);
        ::sd_bus_emit_signal(bus, path, "org.freedesktop.DBus.Properties", "PropertiesChanged",
                             "sa{sv}as", UNIT, 0, 0);
        return ::sd_bus_message_append(reply, "s", unit ? unit->m_ActiveState.c_str() : "inactive");
    }

    static int Job(sd_bus*, const char* path, const char*, const char*, sd_bus_message* reply,
                   void* data, sd_bus_error*)
    {
        auto& self = *static_cast<CServiceManagerStandIn*>(data);
        const std::scoped_lock lock(self.m_Lock);
        const CStandInUnit* unit = self.Find(UnitOfPath(path));
        const bool isStopping = unit && unit->m_IsStopping;
        return ::sd_bus_message_append(reply, "(uo)", isStopping ? 7 : 0,
                                       isStopping ? STOP_JOB : NO_JOB);
    }
};

namespace
{

const sd_bus_vtable MANAGER_TABLE[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("Version", "s", CStandInCalls::Version, 0, 0),
    SD_BUS_METHOD("LoadUnit", "s", "o", CStandInCalls::LoadUnit, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("StartUnit", "ss", "o", CStandInCalls::Order, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("StopUnit", "ss", "o", CStandInCalls::Order, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetUnitFileState", "s", "s", CStandInCalls::GetFileState,
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("EnableUnitFiles", "asbb", "ba(sss)", CStandInCalls::ChangeFile,
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("DisableUnitFiles", "asb", "a(sss)", CStandInCalls::ChangeFile,
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("MaskUnitFiles", "asbb", "a(sss)", CStandInCalls::ChangeFile,
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("UnmaskUnitFiles", "asb", "a(sss)", CStandInCalls::ChangeFile,
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Reload", "", "", CStandInCalls::Nothing, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Subscribe", "", "", CStandInCalls::Nothing, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END};

const sd_bus_vtable UNIT_TABLE[] = {
    SD_BUS_VTABLE_START(0), SD_BUS_PROPERTY("ActiveState", "s", CStandInCalls::State, 0, 0),
    SD_BUS_PROPERTY("LoadState", "s", CStandInCalls::State, 0, 0),
    SD_BUS_PROPERTY("Job", "(uo)", CStandInCalls::Job, 0, 0), SD_BUS_VTABLE_END};

} // namespace

CServiceManagerStandIn::CServiceManagerStandIn(EStart start)
    : m_Address("DBUS_SYSTEM_BUS_ADDRESS", AddressIn(m_BusFolder).c_str()),
      m_UnitPath("SYSTEMD_UNIT_PATH", m_UnitFolder.GetNativePath().c_str())
{
    StartBus();
    if (start == EStart::BusAlone)
        return;
    JoinBus();
    m_Thread = std::thread([this] { Serve(); });
}

CServiceManagerStandIn::~CServiceManagerStandIn()
{
    EndBus();
    ::sd_bus_unref(m_Bus);
}

void CServiceManagerStandIn::StartBus()
{
    // It says so on this pipe once it can be reached.
    const std::string output = (m_BusFolder.GetNativePath() / "output").string();
    Require(::mkfifo(output.c_str(), 0600), "cannot make a pipe");
    m_BusFolder.MakeFile(u"bus.conf", Configuration(m_BusFolder));
    const std::string config = (m_BusFolder.GetNativePath() / "bus.conf").string();
    m_Daemon = std::make_unique<CServerProcess>(
        CArguments{"dbus-daemon", "--config-file=" + config, "--nofork", "--print-address=1"},
        nullptr, output);
    m_DaemonOutput = ::open(output.c_str(), O_RDONLY | O_CLOEXEC);
    char sign = 0;
    while (sign != '\n')
        Require(::read(m_DaemonOutput, &sign, 1) == 1 ? 0 : -1,
                "dbus-daemon did not start: apt-get install dbus");
}

void CServiceManagerStandIn::JoinBus()
{
    Require(::sd_bus_open_system(&m_Bus), "cannot be reached");
    Require(::sd_bus_add_object_vtable(m_Bus, nullptr, PATH, MANAGER, MANAGER_TABLE, this),
            "takes no manager");
    Require(::sd_bus_add_fallback_vtable(m_Bus, nullptr, UNITS, UNIT, UNIT_TABLE, nullptr, this),
            "takes no units");
    Require(::sd_bus_request_name(m_Bus, NAME, 0), "gives no name");
}

void CServiceManagerStandIn::Serve()
{
    for (;;)
    {
        const int result = ::sd_bus_process(m_Bus, nullptr);
        if (result < 0 || (result == 0 && ::sd_bus_wait(m_Bus, UINT64_MAX) < 0))
            return; // the bus has ended
    }
}

void CServiceManagerStandIn::EndBus()
{
    m_Daemon.reset();
    if (m_Thread.joinable())
        m_Thread.join();
    if (m_DaemonOutput >= 0)
        ::close(m_DaemonOutput);
    m_DaemonOutput = -1;
}

CStandInUnit* CServiceManagerStandIn::Find(const std::string& name)
{
    const bool hasFile = std::filesystem::exists(m_UnitFolder.GetNativePath() / name);
    const auto unit = m_Units.find(name);
    if (unit == m_Units.end() && hasFile)
        m_Units[name].m_IsFile = true;
    else if (unit != m_Units.end() && unit->second.m_IsFile && !hasFile)
        m_Units.erase(unit);
    const auto known = m_Units.find(name);
    return known == m_Units.end() ? nullptr : &known->second;
}

void CServiceManagerStandIn::ShowNextState(CStandInUnit& unit)
{
    if (!unit.m_IsStopping)
        return;
    unit.m_ActiveState = unit.m_StopStates.front();
    if (unit.m_StopStates.size() > 1)
        unit.m_StopStates.erase(unit.m_StopStates.begin());
    unit.m_IsStopping = unit.m_ActiveState != "inactive" && unit.m_ActiveState != "failed";
}

void CServiceManagerStandIn::SetUnit(const std::string& name, const CStandInUnit& unit)
{
    const std::scoped_lock lock(m_Lock);
    m_Units[name] = unit;
}

CStandInUnit CServiceManagerStandIn::GetUnit(const std::string& name)
{
    const std::scoped_lock lock(m_Lock);
    const CStandInUnit* unit = Find(name);
    return unit ? *unit : CStandInUnit{};
}

std::vector<std::string> CServiceManagerStandIn::TakeCalls()
{
    const std::scoped_lock lock(m_Lock);
    return std::exchange(m_Calls, {});
}

void CServiceManagerStandIn::Refuse(const std::string& member, const std::string& error)
{
    const std::scoped_lock lock(m_Lock);
    m_Refusals[member] = error;
}

void CServiceManagerStandIn::Ignore(const std::string& member)
{
    const std::scoped_lock lock(m_Lock);
    m_Ignored.insert(member);
}

} // namespace utility
