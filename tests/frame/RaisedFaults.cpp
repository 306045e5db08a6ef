#include "frame/RaisedFaults.h"

#include <cfenv>
#include <cstdio>
#include <limits>
#include <sys/mman.h>

// Values that the compiler must not see through, or it would reckon beforehand.
namespace
{

volatile int g_Zero = 0;
volatile int g_MinusOne = -1;
volatile int g_Lowest = std::numeric_limits<int>::min();
volatile int g_Sum = 0;
volatile double g_FloatZero = 0.0;
volatile double g_Huge = 1e300;
volatile double g_Tiny = 1e-300;
volatile double g_Result = 0.0;
char* volatile g_Null = nullptr;
void (*volatile g_NullFunction)() = nullptr;

/// A page that may not be touched, and one behind the end of the file it shows.
char* MapPage(bool isBehindEnd)
{
    if (!isBehindEnd)
        return static_cast<char*>(
            mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    std::FILE* const file = std::tmpfile();
    void* const page = mmap(nullptr, 4096, PROT_READ, MAP_SHARED, fileno(file), 0);
    std::fclose(file);
    return static_cast<char*>(page);
}

char* ForbiddenPage()
{
    static char* const page = MapPage(false);
    return page;
}

char* PageBehindEnd()
{
    static char* const page = MapPage(true);
    return page;
}

// The sanitizers would report what is wanted here before the processor does.
#define UNCHECKED __attribute__((noinline, no_sanitize("address"), no_sanitize("undefined")))
#define CHILD UNCHECKED void

CHILD ReadNull()
{
    g_Sum = *g_Null;
}
CHILD JumpToNull()
{
    g_NullFunction();
    g_Sum = 1; // so that the call is no jump
}
CHILD JumpToData()
{
    reinterpret_cast<void (*)()>(ForbiddenPage())();
    g_Sum = 1;
}
CHILD WriteForbidden()
{
    *ForbiddenPage() = 1;
}
CHILD ReadNoAddress()
{
    g_Sum = *reinterpret_cast<volatile char*>(0x8000000000000000U); // no memory can be there
}
CHILD ReadBehindEnd()
{
    g_Sum = *PageBehindEnd();
}
CHILD DivideByZero()
{
    g_Sum = 1 / g_Zero;
}
CHILD DivideLowest()
{
    g_Sum = g_Lowest / g_MinusOne;
}

/// The traps of one floating-point fault, for the scope.
class CFloatTrap
{
public:
    explicit CFloatTrap(int fault) : m_Before(fegetexcept()) { feenableexcept(fault); }
    ~CFloatTrap()
    {
        feclearexcept(FE_ALL_EXCEPT);
        fedisableexcept(FE_ALL_EXCEPT);
        feenableexcept(m_Before);
    }

private:
    int m_Before;
};

CHILD FloatDivideByZero()
{
    const CFloatTrap trap(FE_DIVBYZERO);
    g_Result = 1.0 / g_FloatZero;
}
CHILD LongFloatDivideByZero()
{
    const CFloatTrap trap(FE_DIVBYZERO);
    volatile long double zero = 0.0L;
    volatile long double result = 1.0L / zero;
    g_Result = static_cast<double>(result);
}
CHILD FloatInvalid()
{
    const CFloatTrap trap(FE_INVALID);
    g_Result = g_FloatZero / g_FloatZero;
}
CHILD FloatOverflow()
{
    const CFloatTrap trap(FE_OVERFLOW);
    g_Result = g_Huge * g_Huge;
}
CHILD FloatUnderflow()
{
    const CFloatTrap trap(FE_UNDERFLOW);
    g_Result = g_Tiny * g_Tiny;
}
CHILD FloatInexact()
{
    const CFloatTrap trap(FE_INEXACT);
    g_Result = 1.0 / (g_FloatZero + 3.0);
}

#if defined(__x86_64__)
CHILD Break()
{
    __asm__ volatile("int3");
}
CHILD Step()
{
    __asm__ volatile("lea -128(%%rsp), %%rsp\n\t" // over what leaf functions keep there
                     "pushfq\n\t"
                     "orq $0x100, (%%rsp)\n\t"
                     "popfq\n\t"
                     "nop\n\t"
                     "lea 128(%%rsp), %%rsp" ::
                         : "cc", "memory");
}
CHILD ReadMisaligned()
{
    alignas(8) static const char bytes[16] = {};
    __asm__ volatile("lea -128(%%rsp), %%rsp\n\t"
                     "pushfq\n\t"
                     "orq $0x40000, (%%rsp)\n\t" // the alignment check
                     "popfq\n\t"
                     "movl 1(%0), %%eax\n\t"
                     "lea 128(%%rsp), %%rsp"
                     :
                     : "r"(bytes)
                     : "rax", "cc", "memory");
}
CHILD RunIllegal()
{
    __asm__ volatile("ud2");
}
CHILD RunPrivileged()
{
    __asm__ volatile("hlt");
}
#endif

UNCHECKED int UseUpStack(int depth)
{
    volatile char frame[65536]; // large, so that unwinding has few frames to walk
    frame[0] = static_cast<char>(depth);
    return g_Zero == 0 ? UseUpStack(depth + 1) + frame[0] : 0;
}
CHILD OverflowStack()
{
    g_Sum = UseUpStack(0);
}

#undef CHILD

bool IsCaughtAsOther(void (*raise)(), unsigned int code)
{
    using namespace utility;
    try
    {
        raise();
        return false;
    }
    catch (CWin32UserException* exception)
    {
        const CExceptionGuard guard(exception);
        return exception->GetCode() == code;
    }
}

} // namespace

namespace utility
{

UNCHECKED void WriteNull()
{
    *g_Null = 1;
}

std::span<const CRaisedFault> RaisedFaults()
{
#define AS(className) IsCaughtAs<className>, #className
#define OTHER IsCaughtAsOther, "CWin32UserException"
    static const CRaisedFault faults[] = {
        {"a null pointer read", 0, ReadNull, AS(CAccessViolation)},
        {"a null pointer written", 0, WriteNull, AS(CAccessViolation)},
        {"a jump to a null pointer", 0, JumpToNull, AS(CAccessViolation)},
        {"a jump to data", 0, JumpToData, AS(CAccessViolation)},
        {"a page that may not be touched", 0, WriteForbidden, AS(CAccessViolation)},
        {"an address that no memory has", 0, ReadNoAddress, AS(CAccessViolation)},
        {"a page behind its file's end", 0xC0000006, ReadBehindEnd, OTHER},
        {"an integer divided by zero", 0, DivideByZero, AS(CIntDivideByZero), true},
        {"the lowest integer by -1", 0, DivideLowest, AS(CIntDivideByZero), true},
        {"a double divided by zero", 0, FloatDivideByZero, AS(CFltDivideByZero), true},
        {"a long double divided by zero", 0, LongFloatDivideByZero, AS(CFltDivideByZero), true},
        {"zero by zero", 0, FloatInvalid, AS(CFltInvalidOperation), true},
        {"a product too large", 0, FloatOverflow, AS(CFltOverflow), true},
        {"a product too small", 0, FloatUnderflow, AS(CFltUnderflow), true},
        {"a third of one", 0, FloatInexact, AS(CFltInexactResult), true},
#if defined(__x86_64__)
        {"a breakpoint", 0, Break, AS(CBreakpoint)},
        {"a single step", 0, Step, AS(CSingleStep)},
        {"a misaligned read", 0, ReadMisaligned, AS(CDatatypeMisalignment)},
        {"an illegal instruction", 0xC000001D, RunIllegal, OTHER},
        {"a privileged instruction", 0, RunPrivileged, AS(CPrivInstruction)},
#endif
        {"a stack that is used up", 0xC00000FD, OverflowStack, OTHER},
    };
#undef AS
#undef OTHER
    return faults;
}

} // namespace utility
