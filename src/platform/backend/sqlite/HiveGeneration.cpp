#include "platform/backend/sqlite/HiveGeneration.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr std::chrono::milliseconds GATE_PAUSE{1};

} // namespace

CHiveGeneration::~CHiveGeneration()
{
    if (CCounters* counters = m_Counters.load())
        munmap(counters, sizeof(CCounters));
}

void CHiveGeneration::Map(bool create, unsigned mode)
{
    const std::lock_guard lock(m_MapLock);
    if (m_Counters.load())
        return;
    int file = open(m_Path.c_str(), O_RDWR | O_CLOEXEC | (create ? O_CREAT : 0), mode);
    m_Writable = file >= 0;
    if (file < 0)
        file = open(m_Path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return;

    struct stat status = {};
    bool sized = fstat(file, &status) == 0;
    if (sized && status.st_size < static_cast<off_t>(sizeof(CCounters)))
        sized = m_Writable && ftruncate(file, sizeof(CCounters)) == 0;
    void* memory = sized
                       ? mmap(nullptr, sizeof(CCounters),
                              m_Writable ? PROT_READ | PROT_WRITE : PROT_READ, MAP_SHARED, file, 0)
                       : MAP_FAILED;
    close(file);
    if (memory == MAP_FAILED)
        return;

    auto* counters = static_cast<CCounters*>(memory);
    std::uint64_t fresh = 0;
    if (m_Writable)
        counters->m_Generation.compare_exchange_strong(fresh, 2);
    m_Counters = counters;
}

std::uint64_t CHiveGeneration::Get() const
{
    const CCounters* counters = m_Counters.load(std::memory_order_acquire);
    if (!counters)
        return 0;
    const std::uint64_t generation = counters->m_Generation.load();
    return generation % 2 == 0 ? generation : 0;
}

CHiveGeneration::CWrite CHiveGeneration::BeginWrite()
{
    CCounters* counters = m_Counters.load();
    if (!counters || !m_Writable)
        return {};
    std::uint64_t before = counters->m_Generation.load();
    std::uint64_t during = (before | 1) + 2;
    while (!counters->m_Generation.compare_exchange_weak(before, during))
        during = (before | 1) + 2;
    return {before % 2 == 0 ? before : 0, during};
}

std::uint64_t CHiveGeneration::EndWrite(const CWrite& write)
{
    if (write.m_During == 0)
        return 0;
    std::uint64_t during = write.m_During;
    const bool alone = m_Counters.load()->m_Generation.compare_exchange_strong(during, during + 1);
    return alone ? write.m_During + 1 : 0;
}

std::uint64_t CHiveGeneration::GetIncarnation() const
{
    const CCounters* counters = m_Counters.load();
    return counters ? counters->m_Incarnation.load() : 0;
}

void CHiveGeneration::BeginIncarnation()
{
    CCounters* counters = m_Counters.load();
    if (!counters || !m_Writable)
        return;
    ++counters->m_Incarnation;
    const CWrite write = BeginWrite();
    EndWrite(write);
}

CHiveGate::CHiveGate(const std::string& path, unsigned mode, std::chrono::milliseconds patience)
    : m_File(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, mode))
{
    // Where no gate can be made the store cannot be written either, and nobody needs to wait.
    const auto end = std::chrono::steady_clock::now() + patience;
    while (m_File >= 0 && !m_TimedOut && flock(m_File, LOCK_EX | LOCK_NB) != 0)
    {
        m_TimedOut = std::chrono::steady_clock::now() >= end;
        std::this_thread::sleep_for(GATE_PAUSE);
    }
}

CHiveGate::~CHiveGate()
{
    if (m_File >= 0)
        close(m_File);
}

} // namespace utility
