#include "platform/base/Encoding.h"
#include "platform/system/process/WinThread.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr std::size_t NAME_LIMIT = 15; // of the kernel, less the final zero

struct CThreadRecord
{
    pid_t m_SystemId;
    std::string m_Name;
};

/// The living threads that have asked for their numbers.
struct CThreadTable
{
    std::mutex m_Lock;
    std::map<DWORD, CThreadRecord> m_Threads;
};

/// Never destroyed: threads may end later than static objects.
CThreadTable& Table()
{
    static CThreadTable& table = *new CThreadTable;
    return table;
}

/// A thread's entry in the table, from its first question to its end.
class CThreadEntry
{
public:
    CThreadEntry() : m_Number(++LastNumber())
    {
        const std::lock_guard lock(Table().m_Lock);
        Table().m_Threads[m_Number] = {gettid(), {}};
    }
    ~CThreadEntry()
    {
        const std::lock_guard lock(Table().m_Lock);
        Table().m_Threads.erase(m_Number);
    }
    CThreadEntry(const CThreadEntry&) = delete;
    CThreadEntry& operator=(const CThreadEntry&) = delete;

    const DWORD m_Number;

private:
    static std::atomic<DWORD>& LastNumber()
    {
        static std::atomic<DWORD> number{0};
        return number;
    }
};

DWORD NumberOf(DWORD number)
{
    return number == CALLING_THREAD ? GetCurrentThreadId() : number;
}

/// Tells the kernel, where debuggers look. A failure is nobody's concern.
void TellSystem(pid_t thread, const std::string& name)
{
    const std::string path = "/proc/self/task/" + std::to_string(thread) + "/comm";
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (file < 0)
        return;
    [[maybe_unused]] const ssize_t written =
        write(file, name.data(), std::min(name.size(), NAME_LIMIT));
    close(file);
}

} // namespace

DWORD GetCurrentThreadId()
{
    static thread_local const CThreadEntry entry;
    return entry.m_Number;
}

void NameThread(DWORD number, const char* name)
{
    number = NumberOf(number); // before the lock, which a first question takes, too
    pid_t thread = 0;
    {
        const std::lock_guard lock(Table().m_Lock);
        const auto found = Table().m_Threads.find(number);
        if (found == Table().m_Threads.end())
            return;
        found->second.m_Name = name;
        thread = found->second.m_SystemId;
    }
    TellSystem(thread, name);
}

CString GetThreadName(DWORD number)
{
    number = NumberOf(number);
    const std::lock_guard lock(Table().m_Lock);
    const auto found = Table().m_Threads.find(number);
    return found == Table().m_Threads.end() ? CString() : CString(FromUtf8(found->second.m_Name));
}

int GetProcessorCount()
{
    return static_cast<int>(std::max(std::thread::hardware_concurrency(), 1U));
}

void Sleep(DWORD milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace utility
