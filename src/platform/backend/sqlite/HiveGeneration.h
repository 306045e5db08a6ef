#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>

namespace utility
{

/// The count of changes of one store, shared by all processes through a small mapped file beside
/// it.
///
/// Even means at rest, odd that a commit is under way; 0 is never used. While the number is even
/// and the same, nothing was committed, so what was read then still holds: the cache's whole proof.
/// A writer that dies leaves it odd, and readers ask the database itself until the next commit.
/// Only who holds the database's write lock makes it odd, each time with a number never used
/// before, so a late end of the writer before cannot be mistaken.
///
/// The incarnation tells that the store's file was set aside and another begun. Any thread.
class CHiveGeneration
{
public:
    explicit CHiveGeneration(std::string path) : m_Path(std::move(path)) {}
    ~CHiveGeneration();
    CHiveGeneration(const CHiveGeneration&) = delete;
    CHiveGeneration& operator=(const CHiveGeneration&) = delete;

    /// Maps the file, making it if `create`. Without it `Get` is 0.
    void Map(bool create, unsigned mode);
    bool IsWritable() const { return m_Counters.load() != nullptr && m_Writable; }

    /// The generation, 0 while it proves nothing.
    std::uint64_t Get() const;

    struct CWrite
    {
        std::uint64_t m_Before = 0; // 0 if it was odd
        std::uint64_t m_During = 0; // 0 without a map
    };
    CWrite BeginWrite();
    /// The generation that follows upon that write alone, 0 if others came between.
    std::uint64_t EndWrite(const CWrite& write);

    std::uint64_t GetIncarnation() const;
    void BeginIncarnation();

private:
    struct CCounters // the file's layout: two 64-bit numbers of this machine
    {
        std::atomic<std::uint64_t> m_Generation;
        std::atomic<std::uint64_t> m_Incarnation;
    };
    static_assert(std::atomic<std::uint64_t>::is_always_lock_free);

    std::string m_Path;
    std::mutex m_MapLock;
    std::atomic<CCounters*> m_Counters = nullptr;
    bool m_Writable = false;
};

/// Holds the gate of a store, which is made and set aside by one process and thread at a time.
///
/// A holder that hangs is waited for as long as patience lasts.
class CHiveGate
{
public:
    /// As long as the database waits for a writer.
    static constexpr std::chrono::milliseconds PATIENCE{5000};

    CHiveGate(const std::string& path, unsigned mode,
              std::chrono::milliseconds patience = PATIENCE);
    ~CHiveGate();
    CHiveGate(const CHiveGate&) = delete;
    CHiveGate& operator=(const CHiveGate&) = delete;

    bool HasTimedOut() const { return m_TimedOut; }

private:
    int m_File;
    bool m_TimedOut = false;
};

} // namespace utility
