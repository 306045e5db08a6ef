#include "frame/IdleHandler.h"

#include "frame/IdleException.h"
#include "frame/MacroOps.h"
#include "platform/system/window/MessageLoop.h"

#include <algorithm>
#include <list>
#include <utility>

namespace utility
{

IMPLEMENT_DYNAMIC(CIdleException, CException)

namespace
{

constexpr LONG LAST_COUNT_FOR_ALL = 1;

struct CIdleState
{
    std::list<CIdleHandler*> m_Handlers; // null: gone while handlers are called
    int m_Rows = 0; // of calls under way; a handler's own loop may begin another
    bool m_AllowAbort = true;
};

/// Never destroyed: handlers may be static objects of a host.
CIdleState& State()
{
    static CIdleState& state = *new CIdleState;
    return state;
}

/// Marks idle time, during which the list keeps its nodes.
class CIdleRow
{
public:
    CIdleRow() { ++State().m_Rows; }
    ~CIdleRow()
    {
        if (--State().m_Rows == 0)
            State().m_Handlers.remove(nullptr);
    }
    CIdleRow(const CIdleRow&) = delete;
    CIdleRow& operator=(const CIdleRow&) = delete;

    static bool IsUnderWay() { return State().m_Rows > 0; }
    static bool IsOutermost() { return State().m_Rows == 1; }
};

} // namespace

CIdleHandler::CIdleHandler(bool atHead)
{
    std::list<CIdleHandler*>& handlers = State().m_Handlers;
    handlers.insert(atHead ? handlers.begin() : handlers.end(), this);
}

CIdleHandler::~CIdleHandler()
{
    std::list<CIdleHandler*>& handlers = State().m_Handlers;
    if (CIdleRow::IsUnderWay())
        std::replace(handlers.begin(), handlers.end(), this, static_cast<CIdleHandler*>(nullptr));
    else
        handlers.remove(this);
}

bool CIdleHandler::DoIdleProcessing(LONG)
{
    return false;
}

void CIdleHandler::Delete()
{
    if (CIdleRow::IsUnderWay())
        m_IsDeletePending = true;
    else
        delete this;
}

// Whatever but a CIdleException leaves a handler meets the noexcept and ends the program.
int CIdleHandler::OnIdle(LONG count)
{
    return CallAll(count);
}

bool CIdleHandler::CallAll(LONG count) noexcept
{
    const CIdleRow row;
    bool wantsMore = false;
    try
    {
        for (CIdleHandler* const& handler : State().m_Handlers)
        {
            if (!handler)
                continue;
            bool result = false;
            if (count <= LAST_COUNT_FOR_ALL || handler->m_WantsMore)
                result = handler->DoIdleProcessing(count);
            if (!handler) // ended itself, by whatever road
                continue;
            handler->m_WantsMore = result;
            wantsMore |= result;
            // An inner row leaves it to the outer one, whose call may stand in this very handler.
            if (!result && handler->m_IsDeletePending && CIdleRow::IsOutermost())
                delete handler;
        }
    }
    catch (CIdleException* exception)
    {
        exception->Delete();
    }
    return wantsMore;
}

void CIdleHandler::AllowIdleAbort(bool allow)
{
    State().m_AllowAbort = allow;
}

void CIdleHandler::CheckIdleAbort()
{
    if (CIdleRow::IsUnderWay() && State().m_AllowAbort && !CMacroOps::IsReplaying())
        CheckAbortIdleProcessing();
}

void CIdleHandler::CheckAbortIdleProcessing()
{
    if (GetMessageLoop().IsMessageWaiting())
        throw new CIdleException;
}

} // namespace utility
