#pragma once

#include "platform/backend/loop/TaskQueue.h"

#include <condition_variable>
#include <mutex>

namespace utility
{

/// The answer to a sent task, shared by the sender and the task.
class CSendReply
{
public:
    /// `sendersQueue` is to be woken besides, null if the sender has none.
    explicit CSendReply(CTaskQueue* sendersQueue) : m_SendersQueue(sendersQueue) {}

    void Give(bool hasRun);
    bool IsGiven();
    /// Waits for the answer, on a thread without a loop.
    bool Wait();
    bool HasRun();

private:
    CTaskQueue* const m_SendersQueue;
    std::mutex m_Lock;
    std::condition_variable m_Changed;
    bool m_IsGiven = false;
    bool m_HasRun = false;
};

/// A task of another thread, which waits for its end; gone without having run, it answers false.
class CSentTask
{
public:
    CSentTask(IMessageLoop::Task task, std::shared_ptr<CSendReply> reply)
        : m_Task(std::move(task)),
          m_Reply(std::move(reply))
    {
    }
    ~CSentTask() { m_Reply->Give(m_HasRun); }
    CSentTask(const CSentTask&) = delete;
    CSentTask& operator=(const CSentTask&) = delete;

    void Run()
    {
        m_Task();
        m_HasRun = true;
    }

private:
    IMessageLoop::Task m_Task;
    std::shared_ptr<CSendReply> m_Reply;
    bool m_HasRun = false;
};

} // namespace utility
