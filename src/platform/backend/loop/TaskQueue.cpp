#include "platform/backend/loop/TaskQueue.h"

#include "platform/backend/loop/SentTask.h"
#include "platform/system/process/WinThread.h"

#include <cerrno>
#include <exception>
#include <poll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace utility
{

namespace
{

/// Milliseconds until then, up to the next whole one, so that the time has come when they are over.
int MillisecondsUntil(const CTaskQueue::Deadline& until)
{
    constexpr int FOR_EVER = -1;
    if (!until)
        return FOR_EVER;
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(*until - std::chrono::steady_clock::now());
    return static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, INT32_MAX));
}

bool IsFirstThread()
{
    static thread_local const bool isFirst = gettid() == getpid();
    return isFirst;
}

/// The queues made by the present thread for itself, the newest behind.
std::vector<CTaskQueue*>& QueuesOfThread()
{
    static thread_local std::vector<CTaskQueue*> queues;
    return queues;
}

/// The queue in which the first thread waits when it has made none for itself.
constinit std::atomic<CTaskQueue*> queueOfFirstThread = nullptr;

} // namespace

CTaskQueue::CTaskQueue(EMainThread owner, CHooks hooks)
    : m_OwnerKind(owner),
      m_Owner(GetCurrentThreadId()),
      m_Hooks(std::move(hooks)),
      m_WakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (m_WakeUp < 0)
        throw std::system_error(errno, std::generic_category(), "no wake-up for the message loop");
    if (owner == EMainThread::Calling)
        QueuesOfThread().push_back(this);
    else
        queueOfFirstThread = this;
}

CTaskQueue::~CTaskQueue()
{
    std::erase(QueuesOfThread(), this);
    CTaskQueue* self = this;
    queueOfFirstThread.compare_exchange_strong(self, nullptr);
    Close();
    close(m_WakeUp);
}

CTaskQueue* CTaskQueue::FindOwn()
{
    const std::vector<CTaskQueue*>& queues = QueuesOfThread();
    if (!queues.empty())
        return queues.back();
    return IsFirstThread() ? queueOfFirstThread.load() : nullptr;
}

bool CTaskQueue::IsOwner() const
{
    return m_OwnerKind == EMainThread::Calling ? GetCurrentThreadId() == m_Owner : IsFirstThread();
}

bool CTaskQueue::Send(Task task)
{
    CTaskQueue* own = FindOwn();
    const auto reply = std::make_shared<CSendReply>(own);
    auto sent = std::make_shared<CSentTask>(std::move(task), reply);
    if (!Put([sent] { sent->Run(); }, EKind::Sent))
        return false;

    sent.reset(); // from here on the queue alone keeps it
    if (own)
        own->AwaitReply(*reply);
    return reply->Wait();
}

/// Runs what other threads send here meanwhile: one of them may be what the reply waits for.
void CTaskQueue::AwaitReply(CSendReply& reply)
{
    std::exception_ptr thrown;
    while (!reply.IsGiven())
    {
        const Task task = TakeSent();
        if (!task)
        {
            Sleep({}, true);
            continue;
        }
        try
        {
            m_Hooks.m_Run(task);
        }
        catch (...)
        {
            // Passes on once the reply is there: until then the sender's own task may still run on
            // its stack.
            thrown = std::current_exception();
        }
    }
    if (thrown)
        std::rethrow_exception(thrown);
}

bool CTaskQueue::Put(Task task, EKind kind)
{
    const std::lock_guard lock(m_Lock);
    if (m_IsClosed)
        return false;
    Row& row = kind == EKind::Sent ? m_Sent : m_Posted;
    row.push_back({m_NextNumber++, std::move(task)});
    // Woken under the lock: the task may end the queue as soon as it can be taken.
    if (std::exchange(m_IsAsleep, false))
        eventfd_write(m_WakeUp, 1);
    if (m_Hooks.m_Woken)
        m_Hooks.m_Woken();
    return true;
}

void CTaskQueue::Quit(int code)
{
    const std::lock_guard lock(m_Lock);
    m_IsQuitting = true;
    m_QuitCode = code;
    Wake(); // under the lock: who has taken the order may end the queue
}

void CTaskQueue::WakeUp()
{
    const std::lock_guard lock(m_Lock);
    Wake();
}

/// Under the lock.
void CTaskQueue::Wake()
{
    // Fails only when the count is full, and then a wake-up is under way already.
    eventfd_write(m_WakeUp, 1);
    if (m_Hooks.m_Woken)
        m_Hooks.m_Woken();
}

bool CTaskQueue::IsEmpty()
{
    const std::lock_guard lock(m_Lock);
    return m_Posted.empty() && m_Sent.empty();
}

CTaskQueue::Task CTaskQueue::TakeFront(Row& row)
{
    Task task = std::move(row.front().m_Task);
    row.pop_front();
    return task;
}

CTaskQueue::Task CTaskQueue::TakeNext(std::uint64_t limit)
{
    const std::lock_guard lock(m_Lock);
    const bool takesSent = !m_Sent.empty() && (m_Posted.empty() ||
                                               m_Sent.front().m_Number < m_Posted.front().m_Number);
    Row& row = takesSent ? m_Sent : m_Posted;
    return row.empty() || row.front().m_Number >= limit ? Task() : TakeFront(row);
}

CTaskQueue::Task CTaskQueue::TakeSent()
{
    const std::lock_guard lock(m_Lock);
    return m_Sent.empty() ? Task() : TakeFront(m_Sent);
}

std::uint64_t CTaskQueue::GetNextNumber()
{
    const std::lock_guard lock(m_Lock);
    return m_NextNumber;
}

bool CTaskQueue::IsQuitting()
{
    const std::lock_guard lock(m_Lock);
    return m_IsQuitting;
}

bool CTaskQueue::TakeQuit(int& code)
{
    const std::lock_guard lock(m_Lock);
    if (!m_IsQuitting)
        return false;
    m_IsQuitting = false;
    code = m_QuitCode;
    return true;
}

/// False if there is something to do already.
bool CTaskQueue::BeginSleep(bool forSentOnly)
{
    const std::lock_guard lock(m_Lock);
    m_IsAsleep = m_Sent.empty() && (forSentOnly || m_Posted.empty());
    return m_IsAsleep;
}

void CTaskQueue::Sleep(const Deadline& until, bool forSentOnly)
{
    if (!BeginSleep(forSentOnly))
        return;
    pollfd wakeUp{m_WakeUp, POLLIN, 0};
    if (poll(&wakeUp, 1, MillisecondsUntil(until)) > 0)
    {
        eventfd_t count = 0;
        eventfd_read(m_WakeUp, &count);
    }
    const std::lock_guard lock(m_Lock);
    m_IsAsleep = false;
}

void CTaskQueue::Open()
{
    const std::lock_guard lock(m_Lock);
    m_IsClosed = false;
}

void CTaskQueue::Close()
{
    // End outside the lock, since what waits for them may put in again.
    Row posted;
    Row sent;
    const std::lock_guard lock(m_Lock);
    m_IsClosed = true;
    posted.swap(m_Posted);
    sent.swap(m_Sent);
}

} // namespace utility
