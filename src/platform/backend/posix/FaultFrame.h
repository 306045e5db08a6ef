#pragma once

#include <csignal>
#include <cstddef>
#include <ucontext.h>

// Whether an exception may leave a signal handler: needs instructions that may throw, which clang
// does not have, and the register layout that is known here. The thread sanitizer puts signals off.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_THREAD__)
#define UTILITY_TRANSLATES_FAULTS 1
#else
#define UTILITY_TRANSLATES_FAULTS 0
#endif

namespace utility
{

/// A run of addresses.
struct CAddressRange
{
    const char* m_Low = nullptr;
    std::size_t m_Size = 0;

    bool Holds(const void* address) const
    {
        const char* const place = static_cast<const char*>(address);
        return place >= m_Low && place < m_Low + m_Size;
    }
};

/// A signal that the processor's fault became, and the registers that it found.
class CFaultFrame
{
public:
    CFaultFrame(int signal, const siginfo_t& info, ucontext_t& context)
        : m_Signal(signal),
          m_Info(info),
          m_Context(context)
    {
    }

    /// False for a signal that somebody sent.
    bool IsFault() const { return m_Info.si_code > 0; }
    /// The code of the platform's faults; the stack tells whether it is used up.
    unsigned int GetCode(const CAddressRange& stack) const;
    const void* GetStackPointer() const;
    const void* GetInstruction() const;
    /// Null for faults that have none.
    const void* GetAddress() const;

    /// Makes the registers such as unwinding finds the faulting instruction's own frame: behind a
    /// breakpoint it stands on it again, and a jump to nowhere becomes the call that it was.
    void StandOnInstruction(const CAddressRange& stack);
    /// Gives this thread the floating-point control words of the fault, with no flag raised. A
    /// signal handler has the system's.
    void RestoreFloatControl() const;

private:
    bool IsJumpToNowhere() const;
    bool IsPrivileged() const;
    unsigned int GetSegmentCode(const CAddressRange& stack) const;

    int m_Signal;
    const siginfo_t& m_Info;
    ucontext_t& m_Context;
};

/// Switches the processor's alignment check off for this thread; a handler begins with it, since
/// the system leaves it on.
void ClearAlignmentCheck();

} // namespace utility
