#include "platform/backend/posix/FaultFrame.h"

#if UTILITY_TRANSLATES_FAULTS

#include "platform/system/Faults.h"

#include <cstdint>
#include <x86intrin.h>

namespace utility
{

namespace
{

constexpr std::size_t STACK_ZONE = 1U
                                   << 20; // bytes around a stack's end that a frame may leap over
constexpr unsigned long long ALIGNMENT_CHECK = 0x40000;
constexpr unsigned int FLOAT_FLAGS = 0x3F; // of the control word: what happened, not what traps

struct CFloatFault
{
    int m_SignalCode;
    unsigned int m_Code;
};
constexpr CFloatFault FLOAT_FAULTS[] = {
    {FPE_INTDIV, FAULT_INT_DIVIDE_BY_ZERO},    {FPE_INTOVF, FAULT_INT_OVERFLOW},
    {FPE_FLTDIV, FAULT_FLT_DIVIDE_BY_ZERO},    {FPE_FLTOVF, FAULT_FLT_OVERFLOW},
    {FPE_FLTUND, FAULT_FLT_UNDERFLOW},         {FPE_FLTRES, FAULT_FLT_INEXACT_RESULT},
    {FPE_FLTINV, FAULT_FLT_INVALID_OPERATION}, {FPE_FLTSUB, FAULT_ARRAY_BOUNDS_EXCEEDED},
};

/// Instructions of one byte that only the system may use: halting, interrupts off and on, ports.
constexpr unsigned char PRIVILEGED[] = {0xF4, 0xFA, 0xFB, 0xE4, 0xE5, 0xE6, 0xE7, 0xEC,
                                        0xED, 0xEE, 0xEF, 0x6C, 0x6D, 0x6E, 0x6F};

unsigned int CodeOfMath(int signalCode)
{
    for (const CFloatFault& fault : FLOAT_FAULTS)
    {
        if (fault.m_SignalCode == signalCode)
            return fault.m_Code;
    }
    return FAULT_FLT_INVALID_OPERATION;
}

const void* AddressOf(greg_t word)
{
    return reinterpret_cast<const void*>(word);
}

} // namespace

unsigned int CFaultFrame::GetCode(const CAddressRange& stack) const
{
    switch (m_Signal)
    {
    case SIGFPE:
        return CodeOfMath(m_Info.si_code);
    case SIGBUS:
        return m_Info.si_code == BUS_ADRALN ? FAULT_DATATYPE_MISALIGNMENT : FAULT_IN_PAGE;
    case SIGILL:
        return m_Info.si_code == ILL_PRVOPC ? FAULT_PRIV_INSTRUCTION : FAULT_ILLEGAL_INSTRUCTION;
    case SIGTRAP:
        return m_Info.si_code == TRAP_TRACE ? FAULT_SINGLE_STEP : FAULT_BREAKPOINT;
    default:
        return GetSegmentCode(stack);
    }
}

unsigned int CFaultFrame::GetSegmentCode(const CAddressRange& stack) const
{
    if (IsPrivileged())
        return FAULT_PRIV_INSTRUCTION;
    const CAddressRange end = {stack.m_Low - STACK_ZONE, 2 * STACK_ZONE};
    const bool isOverflow = stack.m_Size > 0 && m_Info.si_code != SI_KERNEL &&
                            end.Holds(m_Info.si_addr) && end.Holds(GetStackPointer());
    return isOverflow ? FAULT_STACK_OVERFLOW : FAULT_ACCESS_VIOLATION;
}

const void* CFaultFrame::GetStackPointer() const
{
    return AddressOf(m_Context.uc_mcontext.gregs[REG_RSP]);
}

const void* CFaultFrame::GetInstruction() const
{
    return AddressOf(m_Context.uc_mcontext.gregs[REG_RIP]);
}

const void* CFaultFrame::GetAddress() const
{
    const bool hasAddress =
        (m_Signal == SIGSEGV || m_Signal == SIGBUS) && m_Info.si_code != SI_KERNEL;
    return hasAddress ? m_Info.si_addr : nullptr;
}

bool CFaultFrame::IsJumpToNowhere() const
{
    return m_Signal == SIGSEGV && m_Info.si_code != SI_KERNEL && m_Info.si_addr == GetInstruction();
}

/// The processor reports it as a protection fault without an address; so it does an address that
/// no memory can have, so the instruction itself tells.
bool CFaultFrame::IsPrivileged() const
{
    if (m_Signal != SIGSEGV || m_Info.si_code != SI_KERNEL)
        return false;
    const unsigned char first = *static_cast<const unsigned char*>(GetInstruction());
    for (const unsigned char code : PRIVILEGED)
    {
        if (first == code)
            return true;
    }
    return false;
}

void CFaultFrame::StandOnInstruction(const CAddressRange& stack)
{
    greg_t* const registers = m_Context.uc_mcontext.gregs;
    if (m_Signal == SIGTRAP && m_Info.si_code != TRAP_TRACE)
        registers[REG_RIP] -= 1;
    if (!IsJumpToNowhere() || !stack.Holds(GetStackPointer()))
        return;
    // What called left its return address on the stack; one before it lies within the call.
    registers[REG_RIP] = *static_cast<const greg_t*>(GetStackPointer()) - 1;
    registers[REG_RSP] += static_cast<greg_t>(sizeof(greg_t));
}

void CFaultFrame::RestoreFloatControl() const
{
    if (m_Context.uc_mcontext.fpregs == nullptr)
        return;
    const std::uint16_t control = m_Context.uc_mcontext.fpregs->cwd;
    _mm_setcsr(m_Context.uc_mcontext.fpregs->mxcsr & ~FLOAT_FLAGS);
    __asm__ volatile("fldcw %0" : : "m"(control));
}

void ClearAlignmentCheck()
{
    __writeeflags(__readeflags() & ~ALIGNMENT_CHECK);
}

} // namespace utility

#endif
