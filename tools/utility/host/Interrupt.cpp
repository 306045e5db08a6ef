#include "utility/host/Interrupt.h"

#include "platform/system/window/MessageLoop.h"

#include "utility/command/Command.h"

#include <csignal>

namespace utility
{

namespace
{

constexpr DWORD INTERRUPT_INTERVAL = 100; // milliseconds between looks for Ctrl-C

volatile std::sig_atomic_t g_IsInterrupted = 0;

extern "C" void OnInterrupt(int)
{
    g_IsInterrupted = 1;
    std::signal(SIGINT, SIG_DFL);
}

} // namespace

bool IsInterrupted()
{
    // Taken over late, so that a command that never asks still ends at the first key press.
    static const bool isWatching = std::signal(SIGINT, OnInterrupt) != SIG_ERR;
    return isWatching && g_IsInterrupted != 0;
}

int RunUntilInterrupted()
{
    if (IsInterrupted()) // asked at once, so that no key press ends the process from here on
        return RESULT_OK;
    IMessageLoop& loop = GetMessageLoop();
    const UINT timer = loop.SetTimer(INTERRUPT_INTERVAL,
                                     [&loop]
                                     {
                                         if (IsInterrupted())
                                             loop.Quit(RESULT_OK);
                                     });
    const int result = loop.Run();
    loop.KillTimer(timer);
    return result;
}

} // namespace utility
