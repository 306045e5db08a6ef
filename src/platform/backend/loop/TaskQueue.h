#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/MessageLoop.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>

namespace utility
{

class CSendReply;

/// Tasks on their way to one thread, an order to quit, and the wake-up of that thread.
///
/// Any thread puts in; the thread that owns the queue takes out and waits. The system is only
/// called when the owner sleeps, so a row of posts costs one wake-up.
class UTILITY_CORE_API CTaskQueue
{
public:
    using Task = IMessageLoop::Task;
    using Deadline = std::optional<std::chrono::steady_clock::time_point>;

    enum class EKind
    {
        Posted,
        Sent // its sender waits for it
    };

    struct CHooks
    {
        std::function<void(const Task&)> m_Run; // of a task that is sent while the owner sends
        std::function<void()> m_Woken = {};     // something was put in; any thread, under the lock
    };

    /// Throws std::system_error if the system has no wake-up to give.
    CTaskQueue(EMainThread owner, CHooks hooks);
    ~CTaskQueue();
    CTaskQueue(const CTaskQueue&) = delete;
    CTaskQueue& operator=(const CTaskQueue&) = delete;

    // Any thread
    bool IsOwner() const;
    /// Puts the task in and returns when it has run; false if it never will. A sender that owns a
    /// queue itself goes on running what is sent to that.
    bool Send(Task task);
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
    bool IsQuitting();
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

    static CTaskQueue* FindOwn();
    void AwaitReply(CSendReply& reply);
    void Wake();
    static Task TakeFront(Row& row);
    bool BeginSleep(bool forSentOnly);

    const EMainThread m_OwnerKind;
    const DWORD m_Owner; // our number of the thread that made it
    const CHooks m_Hooks;
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
