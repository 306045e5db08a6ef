#include "Interrupt.h"

#include <csignal>

namespace utility
{

namespace
{

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

} // namespace utility
