#include "frame/Win32Exception.h"

#include "platform/system/Faults.h"

#include <atomic>

namespace utility
{

namespace
{

constexpr unsigned int OTHER_BIT = 0x10000;

template <typename T>
[[noreturn]] void Throw()
{
    throw new T;
}

struct CTranslation
{
    unsigned int m_Code;
    unsigned int m_Bit;
    void (*m_Throw)();
};
constexpr CTranslation TRANSLATIONS[] = {
    {FAULT_ACCESS_VIOLATION, 0x1, Throw<CAccessViolation>},
    {FAULT_BREAKPOINT, 0x2, Throw<CBreakpoint>},
    {FAULT_DATATYPE_MISALIGNMENT, 0x4, Throw<CDatatypeMisalignment>},
    {FAULT_SINGLE_STEP, 0x8, Throw<CSingleStep>},
    {FAULT_ARRAY_BOUNDS_EXCEEDED, 0x10, Throw<CArrayBoundsExceeded>},
    {FAULT_FLT_DENORMAL_OPERAND, 0x20, Throw<CFltDenormalOperand>},
    {FAULT_FLT_DIVIDE_BY_ZERO, 0x40, Throw<CFltDivideByZero>},
    {FAULT_FLT_INEXACT_RESULT, 0x80, Throw<CFltInexactResult>},
    {FAULT_FLT_INVALID_OPERATION, 0x100, Throw<CFltInvalidOperation>},
    {FAULT_FLT_OVERFLOW, 0x200, Throw<CFltOverflow>},
    {FAULT_FLT_STACK_CHECK, 0x400, Throw<CFltStackCheck>},
    {FAULT_FLT_UNDERFLOW, 0x800, Throw<CFltUnderflow>},
    {FAULT_INT_DIVIDE_BY_ZERO, 0x1000, Throw<CIntDivideByZero>},
    {FAULT_INT_OVERFLOW, 0x2000, Throw<CIntOverflow>},
    {FAULT_PRIV_INSTRUCTION, 0x4000, Throw<CPrivInstruction>},
    {FAULT_NONCONTINUABLE, 0x8000, Throw<CNoncontinuableException>},
};

constinit std::atomic<unsigned int> g_Translated = ~0U;
constinit std::atomic<bool> g_IsSet = false;

} // namespace

void CWin32Exception::SetTranslator()
{
    if (!g_IsSet.exchange(true))
        _set_se_translator(Translator);
}

unsigned int CWin32Exception::Translate(unsigned int bits, unsigned int mask)
{
    unsigned int before = g_Translated.load();
    while (!g_Translated.compare_exchange_weak(before, (before & ~mask) | (bits & mask)))
    {
    }
    return before;
}

void CWin32Exception::Translator(unsigned int code, _EXCEPTION_POINTERS*)
{
    const unsigned int translated = g_Translated.load();
    for (const CTranslation& translation : TRANSLATIONS)
    {
        if (translation.m_Code != code)
            continue;
        if ((translated & translation.m_Bit) != 0)
            translation.m_Throw();
        return;
    }
    if ((translated & OTHER_BIT) != 0)
        throw new CWin32UserException(code);
}

CWin32UserException::~CWin32UserException()
{
    if (m_Code == FAULT_STACK_OVERFLOW)
        RenewStackReserve();
}

} // namespace utility
