#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowTable.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

/// Shared with the loop that waits: the window, even its object, may be gone before that returns.
struct CWnd::CModalState
{
    bool m_IsRunning = false;
    bool m_IsOver = false;
    int m_Result = -1;
};

void CWnd::ExpectModalLoop()
{
    m_Modal = std::make_shared<CModalState>();
}

int CWnd::RunModalLoop(DWORD flags)
{
    constexpr DWORD SHOW_FIRST = 4; // MLF_SHOWONIDLE
    constexpr DWORD FOR_EVER = 0xFFFFFFFF;
    if (!m_Modal)
        ExpectModalLoop();
    const std::shared_ptr<CModalState> state = m_Modal;
    if (!m_hWnd || state->m_IsOver)
    {
        m_Modal.reset();
        return state->m_Result;
    }
    state->m_IsRunning = true;
    if ((flags & SHOW_FIRST) && !IsWindowVisible())
        ShowWindow(SW_SHOWNORMAL);
    GetMessageLoop().RunUntil([&] { return state->m_IsOver; }, FOR_EVER);
    return state->m_Result;
}

void CWnd::EndModalLoop(int result)
{
    const std::shared_ptr<CModalState> state = m_Modal;
    if (!state || state->m_IsOver)
        return;
    state->m_Result = result;
    state->m_IsOver = true;
    if (state->m_IsRunning)
        m_Modal.reset(); // the loop knows, and the next one begins anew
    GetMessageLoop().WakeUp();
}

WPARAM CWnd::SetTimer(WPARAM id, UINT milliseconds)
{
    if (!m_hWnd)
        return 0;
    IMessageLoop& loop = GetMessageLoop();
    const HWND window = m_hWnd;
    const auto tick = [window, id]
    {
        if (CWnd* target = FromHandle(window))
            target->SendMessage(WM_TIMER, id);
    };
    if (const UINT previous =
            CWindowTable::Get().SetTimer(m_hWnd, id, loop.SetTimer(milliseconds, tick)))
        loop.KillTimer(previous);
    return id;
}

bool CWnd::KillTimer(WPARAM id)
{
    const UINT timer = CWindowTable::Get().SetTimer(m_hWnd, id, 0);
    if (timer)
        GetMessageLoop().KillTimer(timer);
    return timer != 0;
}

} // namespace utility
