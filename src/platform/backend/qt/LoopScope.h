#pragma once

#include "platform/backend/qt/MessageLoop.h"

namespace utility
{

/// A run or a wait under way. One that is over holds tasks back until it is left.
class CQtMessageLoop::CScope
{
public:
    enum class EKind
    {
        Run,
        Wait,
        Once, // handles what waits
        Look  // handles what the window system has, unseen by idle work
    };

    CScope(CQtMessageLoop& loop, EKind kind) : m_Kind(kind), m_Loop(loop), m_Outer(loop.m_Scope)
    {
        if (kind != EKind::Look)
            m_Loop.StopIdle();
        m_Loop.m_Scope = this;
        if (kind == EKind::Run && m_Loop.m_RunDepth++ == 0)
            m_Loop.m_Queue.Open();
    }
    ~CScope()
    {
        m_Loop.m_Scope = m_Outer;
        if (m_Kind == EKind::Run && --m_Loop.m_RunDepth == 0)
            m_Loop.m_Queue.Close();
        m_Loop.PutTokens(std::exchange(m_Loop.m_HeldTokens, 0) + 1); // one to look after the outer
        if (m_Kind != EKind::Look)
            m_Loop.RestartIdle();
    }
    CScope(const CScope&) = delete;
    CScope& operator=(const CScope&) = delete;

    /// Handles events until the scope is over; passes on what was thrown.
    void Exec()
    {
        if (!m_IsOver && !m_Loop.m_Thrown)
            m_Events.exec();
        RethrowIfAny();
    }
    void RethrowIfAny()
    {
        if (const std::exception_ptr thrown = std::exchange(m_Loop.m_Thrown, nullptr))
            std::rethrow_exception(thrown);
    }
    void End()
    {
        m_IsOver = true;
        m_Events.quit();
    }

    const EKind m_Kind;
    QEventLoop m_Events;
    bool m_IsOver = false;
    const Condition* m_IsDone = nullptr; // of a wait
    std::uint64_t m_Limit = UINT64_MAX;  // only tasks below it run

private:
    CQtMessageLoop& m_Loop;
    CScope* const m_Outer;
};

} // namespace utility
