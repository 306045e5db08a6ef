#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

#include <functional>
#include <memory>

namespace utility
{

/// The main loop of the host: a queue of tasks, timers and idle work of one thread, the main
/// thread.
///
/// `IsMainThread`, `Post`, `Send`, `WakeUp` and `Quit` may come from any thread, all else from the
/// main thread. A task that is dropped unrun is destroyed, so what it holds is released. An
/// exception that leaves a task passes out of the innermost run or wait.
class UTILITY_CORE_API IMessageLoop
{
public:
    using Task = std::function<void()>;
    /// Called with 0, 1, 2 ... while nothing waits; true asks for another call. The count starts
    /// anew after each task.
    using IdleHandler = std::function<bool(LONG count)>;
    using Condition = std::function<bool()>;

    virtual ~IMessageLoop() = default;

    virtual bool IsMainThread() const = 0;

    // Handing over work
    /// Runs the task later, in the order of posts; false once the loop has ended.
    virtual bool Post(Task task) = 0;
    /// Runs the task on the main thread, behind what was posted before, and returns when it has
    /// run; false if the loop ended before, or the task threw.
    ///
    /// A sender that has a loop of its own goes on running what is sent to that (and nothing that
    /// is posted), so threads that send to each other at the same time never wait for ever. A main
    /// thread that is blocked in any other way, such as a bare `join`, answers nobody.
    virtual bool Send(Task task) = 0;

    // Looking and waiting
    /// True if posted work or user input waits; nothing is removed or delivered.
    virtual bool IsMessageWaiting() = 0;
    /// Handles what waits now, once; what it posts in turn stays.
    virtual void HandleWaiting() = 0;
    /// Until the handle is signalled, while windows repaint and nothing else is delivered; the
    /// result of `WaitForSingleObject`.
    virtual DWORD WaitForHandle(HANDLE handle) = 0;
    /// Handles tasks and timers, but makes no idle calls, until `isDone` answers true; false when
    /// so many milliseconds have passed before. It is asked at once, after each task and timer, and
    /// when the loop is woken. An order to quit waits for the run around.
    virtual bool RunUntil(const Condition& isDone, DWORD milliseconds) = 0;
    /// Lets `RunUntil` ask its condition anew.
    virtual void WakeUp() = 0;

    // Running
    virtual void SetIdleHandler(IdleHandler handler) = 0;
    /// Until `Quit`, whose code it returns. Runs may nest; `Quit` ends the innermost one. When the
    /// outermost has ended, what still waits is dropped and posts are refused until the next run.
    virtual int Run() = 0;
    virtual void Quit(int code) = 0;

    // Timers
    /// Runs the task each time so many milliseconds have passed, at least 1; the id is never 0.
    virtual UINT SetTimer(DWORD milliseconds, Task task) = 0;
    virtual void KillTimer(UINT id) = 0;
};

/// The loop in force: the one installed, else one without a window system whose main thread is the
/// process's first. Any thread.
UTILITY_CORE_API IMessageLoop& GetMessageLoop();

/// Installs a loop, which the caller keeps alive, or with null the default again. Returns what was
/// installed before, null for none.
UTILITY_CORE_API IMessageLoop* SetMessageLoop(IMessageLoop* loop);

/// Which thread a loop takes for the main one.
enum class EMainThread
{
    Calling,
    FirstOfProcess
};

/// A loop without a window system; it ends on the thread that made it.
UTILITY_CORE_API std::unique_ptr<IMessageLoop>
MakeHeadlessMessageLoop(EMainThread mainThread = EMainThread::Calling);

} // namespace utility
