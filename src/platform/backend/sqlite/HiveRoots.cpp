#include "platform/backend/sqlite/HiveRoots.h"

#include "platform/backend/sqlite/HiveFile.h"
#include "platform/system/RegistryHive.h"

#include <cstdlib>
#include <mutex>
#include <pthread.h>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace utility
{

namespace
{

std::string Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string HomeFolder()
{
    const std::string home = Variable("HOME");
    if (!home.empty())
        return home;
    std::vector<char> buffer(4096);
    passwd record = {};
    passwd* found = nullptr;
    getpwuid_r(geteuid(), &record, buffer.data(), buffer.size(), &found);
    return found ? found->pw_dir : "";
}

std::string UserFolder()
{
    const std::string folder = Variable("XDG_CONFIG_HOME");
    return (folder.empty() ? HomeFolder() + "/.config" : folder) + "/utility";
}

std::string MachineFolder()
{
    const std::string folders = Variable("XDG_CONFIG_DIRS");
    const std::string first = folders.substr(0, folders.find(':'));
    return (first.empty() ? "/etc/xdg" : first) + "/utility";
}

struct CHiveTable
{
    std::mutex m_Lock;
    std::vector<std::unique_ptr<CHiveFile>> m_Files; // also those of folders left behind
    std::atomic<CHiveFile*> m_User = nullptr;
    std::atomic<CHiveFile*> m_Machine = nullptr;
    std::atomic<unsigned> m_Forks = 0;

    CHiveTable() { Fill(); }

    void Fill()
    {
        const std::string moved = Variable("UTILITY_SETTINGS_DIR");
        const auto make = [this](std::string path, bool shared)
        {
            return m_Files.emplace_back(std::make_unique<CHiveFile>(std::move(path), shared)).get();
        };
        m_User = make((moved.empty() ? UserFolder() : moved) + "/user.db", false);
        m_Machine = make((moved.empty() ? MachineFolder() : moved) + "/machine.db", true);
    }
};

CHiveTable& Table();

// A connection does not survive a fork: the forking thread closes its own before, the child
// abandons what other threads had. No lock may be held by a thread that the child does not have.
void BeforeFork()
{
    CHiveFile::CloseThreadConnections();
    Table().m_Lock.lock();
    for (const auto& file : Table().m_Files)
        file->GetCache().Lock();
}

void AfterFork()
{
    for (const auto& file : Table().m_Files)
        file->GetCache().Unlock();
    Table().m_Lock.unlock();
}

void AfterForkInChild()
{
    ++Table().m_Forks;
    for (const auto& file : Table().m_Files)
        file->GetCache().RenewLock();
    Table().m_Lock.unlock();
}

CHiveTable& Table()
{
    // Never destroyed: threads that end late still close their connections.
    static CHiveTable& table = []() -> CHiveTable&
    {
        pthread_atfork(&BeforeFork, &AfterFork, &AfterForkInChild);
        return *new CHiveTable;
    }();
    return table;
}

} // namespace

CHiveFile& GetUserHive()
{
    return *Table().m_User.load();
}

CHiveFile& GetMachineHive()
{
    return *Table().m_Machine.load();
}

unsigned GetForkCount()
{
    return Table().m_Forks.load(std::memory_order_relaxed);
}

void ReopenRegistry()
{
    CHiveFile::CloseThreadConnections();
    CHiveTable& table = Table();
    const std::lock_guard lock(table.m_Lock);
    table.Fill();
}

} // namespace utility
