#include "frame/MultiThreading.h"

#include "platform/system/process/WinThread.h"
#include "settings/AppRegistry.h"

#include <atomic>

namespace utility
{

namespace
{

constexpr char16_t SETTINGS_KEY[] = u"design";
constexpr char16_t THREAD_COUNT[] = u"ThreadCount";
constexpr char16_t ENABLE_THREADS[] = u"EnableThreads";

constexpr int AS_SET = -1;
constexpr int FEWEST_THREADS = 2;

constinit std::atomic<bool> isParallelTaskRunning = false;

} // namespace

int GetThreadCount()
{
    int count = GetProcessorCount();
    CAppRegistry(SETTINGS_KEY).GetValue(THREAD_COUNT, count);
    return count - 1; // one is left to the main thread
}

bool IsMultiThreadingEnabled()
{
    bool enabled = true;
    CAppRegistry(SETTINGS_KEY).GetValue(ENABLE_THREADS, enabled);
    return enabled;
}

bool IsMultiThreaded()
{
    return isParallelTaskRunning;
}

void IsMultiThreaded(bool isMultiThreaded)
{
    isParallelTaskRunning = isMultiThreaded;
}

bool CanMultiThread(int threads)
{
    if (threads == AS_SET)
        threads = GetThreadCount();
    return IsMultiThreadingEnabled() && !IsMultiThreaded() && threads >= FEWEST_THREADS &&
           GetProcessorCount() >= threads;
}

void SetThreadName(DWORD threadId, const char* name)
{
    NameThread(threadId, name);
}

} // namespace utility
