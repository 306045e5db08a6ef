#pragma once

#include "platform/system/window/MessageLoop.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>

namespace utility
{

/// Tasks on their way to one thread, an order to quit, and the wake-up of that thread.
///
/// Any thread puts in; the thread that owns the queue takes out and waits. The system is only
/// called when the owner sleeps, so a row of posts costs one wake-up.
class CTaskQueue
{
public:
    using Task = IMessageLoop::Task;
    using Deadline = std::optional<std::chrono::steady_clock::time_point>;

    enum class EKind
    {
        Posted,
        Sent // its sender waits for it
    };

    /// Throws std::system_error if the system has no wake-up to give.
    CTaskQueue();
    ~CTaskQueue();
    CTaskQueue(const CTaskQueue&) = delete;
    CTaskQueue& operator=(const CTaskQueue&) = delete;

    // Any thread
    /// False, and the task is gone, while the queue is closed.
    bool Put(Task task, EKind kind);
    void Quit(int code);
    void WakeUp();

    // The owner
    bool IsEmpty();
    /// The oldest task whose number is below `limit`; empty if there is none.
    Task TakeNext(std::uint64_t limit = UINT64_MAX);
    /// The oldest task that a sender waits for; empty if there is none.
    Task TakeSent();
    /// The number of the next task.
    std::uint64_t GetNextNumber();
    bool TakeQuit(int& code);
    /// Until something waits (of either kind, or a sent task), the queue is woken, or the time has
    /// come.
    void Sleep(const Deadline& until, bool forSentOnly = false);

    void Open();
    /// Refuses tasks from now on and drops those that wait.
    void Close();

private:
    struct CNumbered
    {
        std::uint64_t m_Number;
        Task m_Task;
    };
    using Row = std::deque<CNumbered>;

    static Task TakeFront(Row& row);
    bool BeginSleep(bool forSentOnly);

    const int m_WakeUp; // an event descriptor

    std::mutex m_Lock; // guards all below
    Row m_Posted;
    Row m_Sent;
    std::uint64_t m_NextNumber = 0;
    bool m_IsAsleep = false; // and not yet woken
    bool m_IsClosed = false;
    bool m_IsQuitting = false;
    int m_QuitCode = 0;
};

} // namespace utility
