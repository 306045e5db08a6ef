#include "frame/AppMessageBox.h"
#include "frame/Application.h"
#include "platform/system/process/Handle.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/UserInterface.h"
#include "platform/system/window/Wnd.h"
#include "resources/MessageNames.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <ctime>
#include <glib.h>
#include <mutex>
#include <semaphore>
#include <thread>
#include <vector>

using namespace utility;

// The loop without windows beside GLib's main loop: how soon and how fast the tasks of another
// thread run, how long a worker waits for its box, and what a loop costs that has nothing to do.

namespace
{

using Clock = std::chrono::steady_clock;

constexpr auto TIME_TO_FALL_ASLEEP = std::chrono::microseconds(100);
constexpr int ROW = 100000; // posts in a row
constexpr DWORD IDLE_TIME = 10000;

/// Our loop, as the one in force.
class COurLoop
{
public:
    COurLoop() : m_Previous(SetMessageLoop(m_Loop.get())) {}
    ~COurLoop() { SetMessageLoop(m_Previous); }
    COurLoop(const COurLoop&) = delete;
    COurLoop& operator=(const COurLoop&) = delete;

    template <typename TTask>
    void Post(TTask task)
    {
        m_Loop->Post(task);
    }
    template <typename TCondition>
    void RunUntil(const TCondition& isDone)
    {
        benchmark::DoNotOptimize(m_Loop->RunUntil(isDone, INFINITE));
    }
    void Idle(DWORD milliseconds)
    {
        bool isOver = false;
        m_Loop->SetIdleHandler([](LONG) { return false; });
        m_Loop->SetTimer(milliseconds, [&isOver] { isOver = true; });
        RunUntil([&isOver] { return isOver; });
    }

private:
    std::unique_ptr<IMessageLoop> m_Loop = MakeHeadlessMessageLoop();
    IMessageLoop* m_Previous;
};

class CPeerLoop
{
public:
    CPeerLoop() : m_Context(g_main_context_new()) { g_main_context_acquire(m_Context); }
    ~CPeerLoop()
    {
        g_main_context_release(m_Context);
        g_main_context_unref(m_Context);
    }
    CPeerLoop(const CPeerLoop&) = delete;
    CPeerLoop& operator=(const CPeerLoop&) = delete;

    template <typename TTask>
    void Post(TTask task)
    {
        const auto run = [](gpointer data) -> gboolean
        {
            (*static_cast<TTask*>(data))();
            return G_SOURCE_REMOVE;
        };
        const auto end = [](gpointer data)
        {
            delete static_cast<TTask*>(data);
        };
        g_main_context_invoke_full(m_Context, G_PRIORITY_DEFAULT, run, new TTask(task), end);
    }
    template <typename TCondition>
    void RunUntil(const TCondition& isDone)
    {
        while (!isDone())
            g_main_context_iteration(m_Context, TRUE);
    }
    void Idle(DWORD milliseconds)
    {
        bool isOver = false;
        GSource* timer = g_timeout_source_new(milliseconds);
        const auto run = [](gpointer data) -> gboolean
        {
            *static_cast<bool*>(data) = true;
            return G_SOURCE_REMOVE;
        };
        g_source_set_callback(timer, run, &isOver, nullptr);
        g_source_attach(timer, m_Context);
        RunUntil([&isOver] { return isOver; });
        g_source_unref(timer);
    }

private:
    GMainContext* m_Context;
};

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Times of single events, told by their middle: the others hold what the machine did beside.
class CTimes
{
public:
    explicit CTimes(benchmark::State& state) : m_State(state) {}
    ~CTimes()
    {
        if (m_Times.empty())
            return;
        const auto middle = m_Times.begin() + static_cast<std::ptrdiff_t>(m_Times.size() / 2);
        std::nth_element(m_Times.begin(), middle, m_Times.end());
        m_State.counters["p50_us"] = *middle * 1e6;
    }
    CTimes(const CTimes&) = delete;
    CTimes& operator=(const CTimes&) = delete;

    void Add(double seconds)
    {
        m_State.SetIterationTime(seconds);
        m_Times.push_back(seconds);
    }

private:
    benchmark::State& m_State;
    std::vector<double> m_Times;
};

/// Does `work` on a thread of its own each time it is let go, until its end.
class CWorker
{
public:
    template <typename TWork>
    explicit CWorker(TWork work) : m_Thread([this, work] { Run(work); })
    {
    }
    ~CWorker()
    {
        m_IsEnding = true;
        m_Go.release();
        m_Thread.join();
    }
    CWorker(const CWorker&) = delete;
    CWorker& operator=(const CWorker&) = delete;

    void Go() { m_Go.release(); }

private:
    template <typename TWork>
    void Run(const TWork& work)
    {
        for (m_Go.acquire(); !m_IsEnding; m_Go.acquire())
            work();
    }

    std::atomic<bool> m_IsEnding = false;
    std::counting_semaphore<> m_Go{0};
    std::thread m_Thread;
};

/// From a post on another thread to its handler on this one, which sleeps.
template <typename TLoop>
void PostToSleeping(benchmark::State& state)
{
    TLoop loop;
    double taken = 0;
    bool isHandled = false;
    CWorker worker(
        [&]
        {
            std::this_thread::sleep_for(TIME_TO_FALL_ASLEEP);
            const Clock::time_point posted = Clock::now();
            loop.Post(
                [&, posted]
                {
                    taken = SecondsSince(posted);
                    isHandled = true;
                });
        });
    CTimes times(state);
    for (auto _ : state)
    {
        isHandled = false;
        worker.Go();
        loop.RunUntil([&] { return isHandled; });
        times.Add(taken);
    }
}

/// Many posts of another thread in a row, until the last one is handled.
template <typename TLoop>
void PostInARow(benchmark::State& state)
{
    TLoop loop;
    int handled = 0;
    CWorker worker(
        [&]
        {
            for (int i = 0; i < ROW; ++i)
                loop.Post([&handled] { ++handled; });
        });
    for (auto _ : state)
    {
        handled = 0;
        worker.Go();
        loop.RunUntil([&] { return handled == ROW; });
    }
    state.SetItemsProcessed(state.iterations() * ROW);
}

class CAnsweringWnd : public CWnd
{
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return message == MSG_SHOW_APP_MESSAGE_BOX ? CAppMessageBox::Answer(wParam, lParam)
                                                   : CWnd::WindowProc(message, wParam, lParam);
    }
};

/// A worker's box through the main window, answered by policy.
void BoxOfWorker(benchmark::State& state)
{
    COurLoop loop;
    const auto nobody = MakeHeadlessUserInterface(EBoxPolicy::SayYes);
    SetUserInterface(nobody.get());
    CAnsweringWnd mainWindow;
    mainWindow.Create(u"Frame", u"", 0, nullptr);
    CApplication::SetMainWnd(&mainWindow);
    double taken = 0;
    bool isHandled = false;
    CWorker worker(
        [&]
        {
            std::this_thread::sleep_for(TIME_TO_FALL_ASLEEP);
            const Clock::time_point asked = Clock::now();
            const int answer = CAppMessageBox::Show(u"Go on?", MB_YESNO, 0);
            taken = answer == IDYES ? SecondsSince(asked) : 1;
            loop.Post([&isHandled] { isHandled = true; });
        });
    {
        CTimes times(state);
        for (auto _ : state)
        {
            isHandled = false;
            worker.Go();
            loop.RunUntil([&] { return isHandled; });
            times.Add(taken);
        }
    }
    CApplication::SetMainWnd(nullptr);
    SetUserInterface(nullptr);
}

/// A bare question to the main thread, and its answer.
void QuestionOfWorker(benchmark::State& state)
{
    CPeerLoop loop;
    std::mutex lock;
    std::condition_variable answered;
    double taken = 0;
    bool isHandled = false;
    CWorker worker(
        [&]
        {
            std::this_thread::sleep_for(TIME_TO_FALL_ASLEEP);
            const Clock::time_point asked = Clock::now();
            int answer = 0;
            loop.Post(
                [&]
                {
                    const std::lock_guard guard(lock);
                    answer = IDYES;
                    answered.notify_one();
                });
            {
                std::unique_lock guard(lock);
                answered.wait(guard, [&answer] { return answer != 0; });
            }
            taken = SecondsSince(asked);
            loop.Post([&isHandled] { isHandled = true; });
        });
    CTimes times(state);
    for (auto _ : state)
    {
        isHandled = false;
        worker.Go();
        loop.RunUntil([&] { return isHandled; });
        times.Add(taken);
    }
}

double ProcessorSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// What ten seconds without anything to do cost the processor.
template <typename TLoop>
void Idle(benchmark::State& state)
{
    TLoop loop;
    for (auto _ : state)
    {
        const double before = ProcessorSeconds();
        loop.Idle(IDLE_TIME);
        state.SetIterationTime(ProcessorSeconds() - before);
    }
}

BENCHMARK(PostToSleeping<COurLoop>)->Name("post to a sleeping loop/ours")->UseManualTime();
BENCHMARK(PostToSleeping<CPeerLoop>)->Name("post to a sleeping loop/glib")->UseManualTime();
BENCHMARK(PostInARow<COurLoop>)->Name("100,000 posts in a row/ours")->UseRealTime();
BENCHMARK(PostInARow<CPeerLoop>)->Name("100,000 posts in a row/glib")->UseRealTime();
BENCHMARK(BoxOfWorker)->Name("box of a worker/ours")->UseManualTime();
BENCHMARK(QuestionOfWorker)->Name("box of a worker/glib, bare question")->UseManualTime();
BENCHMARK(Idle<COurLoop>)->Name("idle for 10 s/ours")->UseManualTime()->Iterations(1);
BENCHMARK(Idle<CPeerLoop>)->Name("idle for 10 s/glib")->UseManualTime()->Iterations(1);

} // namespace
