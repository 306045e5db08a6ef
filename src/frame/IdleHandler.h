#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/base/object/Object.h"

namespace utility
{

/// Work for the time when the main loop has nothing to do. It lists itself for as long as it lives.
///
///     GetMessageLoop().SetIdleHandler([](LONG n) { return CIdleHandler::OnIdle(n) != 0; });
///
/// Handlers may be made and ended while idle work is done, and may post: a posted message ends the
/// present row of idle calls, and the count starts anew. User-interface thread.
class UTILITY_CORE_API CIdleHandler : public CObject
{
public:
    CIdleHandler() : CIdleHandler(false) {}
    /// Called before all that are listed so far, or behind them.
    explicit CIdleHandler(bool atHead);
    ~CIdleHandler() override;

    /// Does a piece of the work; true asks for another call soon. Long work calls `CheckIdleAbort`
    /// now and then. Nothing but a `CIdleException` may leave it: anything else ends the program.
    virtual bool DoIdleProcessing(LONG count);

    /// Ends an object made by `new`; in idle time only once it next wants no more calls.
    void Delete();

    /// One row of calls, made by the host when nothing waits; true while any handler wants more.
    ///
    ///     count   called
    ///     0, 1    every handler
    ///     2 up    those that wanted more at their last call
    ///
    /// A `CIdleException` ends the row, and the answer is what the handlers before it said.
    static int OnIdle(LONG count);

    /// Throws a `CIdleException` if a message waits: in idle time only, never while a macro
    /// replays, and only while this is allowed, as it is at first.
    static void CheckIdleAbort();
    static void AllowIdleAbort(bool allow);

private:
    static bool CallAll(LONG count) noexcept;
    static void CheckAbortIdleProcessing();

    bool m_WantsMore = false; // the last answer
    bool m_IsDeletePending = false;
};

} // namespace utility
