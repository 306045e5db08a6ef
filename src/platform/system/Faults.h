#pragma once

#include "platform/base/Export.h"

namespace utility
{

// Faults of the processor by the codes that hosts know them by; on this system each comes as a
// signal.
constexpr unsigned int FAULT_ACCESS_VIOLATION = 0xC0000005;      // no such address, or not so
constexpr unsigned int FAULT_BREAKPOINT = 0x80000003;            // the breakpoint instruction
constexpr unsigned int FAULT_DATATYPE_MISALIGNMENT = 0x80000002; // with the processor's check on
constexpr unsigned int FAULT_SINGLE_STEP = 0x80000004; // with the processor's trace flag on
constexpr unsigned int FAULT_ARRAY_BOUNDS_EXCEEDED = 0xC000008C;
constexpr unsigned int FAULT_FLT_DENORMAL_OPERAND = 0xC000008D; // by hand alone: comes as underflow
constexpr unsigned int FAULT_FLT_DIVIDE_BY_ZERO = 0xC000008E;
constexpr unsigned int FAULT_FLT_INEXACT_RESULT = 0xC000008F;
constexpr unsigned int FAULT_FLT_INVALID_OPERATION = 0xC0000090;
constexpr unsigned int FAULT_FLT_OVERFLOW = 0xC0000091;
constexpr unsigned int FAULT_FLT_STACK_CHECK = 0xC0000092; // by hand alone
constexpr unsigned int FAULT_FLT_UNDERFLOW = 0xC0000093;
constexpr unsigned int FAULT_INT_DIVIDE_BY_ZERO = 0xC0000094; // also the lowest integer by -1
constexpr unsigned int FAULT_INT_OVERFLOW = 0xC0000095;
constexpr unsigned int FAULT_PRIV_INSTRUCTION = 0xC0000096;
constexpr unsigned int FAULT_NONCONTINUABLE = 0xC0000025; // by hand alone
constexpr unsigned int FAULT_IN_PAGE = 0xC0000006;        // a mapped file ends before the address
constexpr unsigned int FAULT_ILLEGAL_INSTRUCTION = 0xC000001D;
constexpr unsigned int FAULT_STACK_OVERFLOW = 0xC00000FD;

/// Where a fault happened.
struct _EXCEPTION_POINTERS
{
    const void* m_Instruction; // what faulted; for a jump to nowhere, what jumped
    const void* m_Address;     // what could not be reached; null where the fault has none
};

/// Is called in the faulting thread, in place of what faulted. Throws, or returns to let the fault
/// go on.
using CFaultTranslator = void (*)(unsigned int code, _EXCEPTION_POINTERS* pointers);

/// Covers the calling thread until it ends, or until a null translator uncovers it; the translator
/// before, null for none.
///
/// A fault that the translator does not throw for, and every fault on a thread that is not covered,
/// goes to the signal handler that stood before the first call, or to the system's. Where an
/// exception must pass, code is compiled with -fnon-call-exceptions and unwind tables: the library
/// is, and hosts get the options with it. A fault within the allocator leaves its lock taken.
///
/// After a catch the floating-point control word is that of the fault, its status flags are clear,
/// and the processor's alignment check is off.
UTILITY_CORE_API CFaultTranslator _set_se_translator(CFaultTranslator translator);

/// Holds back again the last 64 KB of the covered thread's stack, which an overflow opens so that
/// what is destroyed on the way out has room; for who is done with such a fault. Does nothing on
/// other threads, and where the stack is still that full.
UTILITY_CORE_API void RenewStackReserve();

/// Whether faults reach a translator in this build: g++ on x86-64 without the thread sanitizer.
/// Elsewhere a translator is only remembered.
UTILITY_CORE_API bool CanTranslateFaults();

} // namespace utility
