#pragma once

#include <atomic>

namespace utility
{

/// Lets another thread reach a statement while one of its calls runs, and at no other time: a
/// driver manager that is asked to stop an idle statement wipes what its last call said.
class CCallGate
{
public:
    /// Stands around one call, on the statement's own thread.
    class CCall
    {
    public:
        explicit CCall(CCallGate& gate) : m_Gate(gate) { m_Gate.m_State = EState::Calling; }
        ~CCall() { m_Gate.Leave(); }
        CCall(const CCall&) = delete;
        CCall& operator=(const CCall&) = delete;

    private:
        CCallGate& m_Gate;
    };

    /// Calls `stop` if a call runs, which does not end before `stop` has. Any thread; never waits.
    template <typename TStop>
    void StopWith(const TStop& stop)
    {
        EState expected = EState::Calling;
        if (!m_State.compare_exchange_strong(expected, EState::Stopping))
            return;
        m_WasStopped = true;
        stop();
        m_State = EState::Calling;
        m_State.notify_one();
    }

    /// A call was stopped since Forget.
    bool WasStopped() const { return m_WasStopped; }
    void Forget() { m_WasStopped = false; }

private:
    enum class EState
    {
        Idle,
        Calling,
        Stopping
    };

    void Leave()
    {
        EState expected = EState::Calling;
        while (!m_State.compare_exchange_strong(expected, EState::Idle))
        {
            m_State.wait(EState::Stopping);
            expected = EState::Calling;
        }
    }

    std::atomic<EState> m_State = EState::Idle;
    std::atomic<bool> m_WasStopped = false;
};

} // namespace utility
