#include "platform/backend/posix/StackReserve.h"

#if UTILITY_TRANSLATES_FAULTS

#include <cstdint>
#include <sys/mman.h>
#include <sys/random.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr std::size_t RESERVE = 64U << 10;       // bytes
constexpr std::size_t LEAST_STACK = 4 * RESERVE; // of a smaller one nothing is taken

/// A first thread's stack grows as it is touched. The system touches it here, since it answers
/// where a touch of ours would fault.
bool IsThere(const char* address)
{
    return getrandom(const_cast<char*>(address), 1, GRND_NONBLOCK) == 1;
}

} // namespace

void CStackReserve::SetUp(const CAddressRange& stack)
{
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const std::uintptr_t low =
        (reinterpret_cast<std::uintptr_t>(stack.m_Low) + page - 1) / page * page;
    const CAddressRange pages = {reinterpret_cast<const char*>(low), RESERVE};
    if (stack.m_Size < LEAST_STACK || !IsThere(pages.m_Low))
        return;
    m_Pages = pages;
    if (!Protect(PROT_NONE))
        m_Pages = {};
}

void CStackReserve::GiveBack()
{
    if (m_Pages.m_Size > 0 && Protect(PROT_READ | PROT_WRITE))
        m_Pages = {};
}

void CStackReserve::Open()
{
    if (m_Pages.m_Size > 0 && !m_IsOpen)
        m_IsOpen = Protect(PROT_READ | PROT_WRITE);
}

void CStackReserve::Close(const void* stackPointer)
{
    if (m_IsOpen && static_cast<const char*>(stackPointer) > m_Pages.m_Low + 2 * RESERVE)
        m_IsOpen = !Protect(PROT_NONE);
}

bool CStackReserve::Protect(int protection) const
{
    return mprotect(const_cast<char*>(m_Pages.m_Low), m_Pages.m_Size, protection) == 0;
}

} // namespace utility

#endif
