#include "frame/Win32Exception.h"

#include "frame/RaisedFaults.h"
#include "platform/system/Faults.h"

#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <csignal>
#include <functional>
#include <malloc.h>
#include <thread>
#include <typeinfo>
#include <unistd.h>

using namespace utility;

namespace
{

constexpr int STOOD_BEFORE = 42; // what the handler that stood before ends a process with
constexpr int ROUNDS = 10000;

/// Ends the process; for faults that no translation may take up.
void OnPassedOn(int)
{
    _exit(STOOD_BEFORE);
}

/// In a child: how a fault ends it, where a handler of this test stands before the translator.
int HowEnds(const std::function<void()>& work)
{
    CChildProcess child(
        [&work]
        {
            for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP})
                std::signal(signal, OnPassedOn);
            work();
            return 0;
        });
    return child.Wait();
}

bool IsCaught(const CRaisedFault& fault)
{
    return fault.m_IsCaught(fault.m_Raise, fault.m_Code);
}

bool IsCaughtAsMath(const CRaisedFault& fault)
{
    try
    {
        return IsCaughtAs<CMathException>(fault.m_Raise);
    }
    catch (CException* exception)
    {
        const CExceptionGuard guard(exception);
        return false;
    }
}

TEST(Win32ExceptionTest, EveryFaultIsCaughtAsItsClassAgainAndAgain)
{
    if (!CanTranslateFaults())
    {
        // Then nothing may be taken up: what stood before gets the fault.
        for (const CRaisedFault& fault : RaisedFaults())
        {
            SCOPED_TRACE(fault.m_Name);
            if (fault.m_Code == FAULT_STACK_OVERFLOW)
                continue; // a plain handler has no stack to run on
            EXPECT_EQ(HowEnds(
                          [&fault]
                          {
                              CWin32Exception::SetTranslator();
                              fault.m_Raise();
                          }),
                      STOOD_BEFORE);
        }
        return;
    }
    if (!IsInFreshProcess())
        return;
    CWin32Exception::SetTranslator();
    std::printf("%-32s %-24s caught as mathematics\n", "fault", "caught as");
    for (const CRaisedFault& fault : RaisedFaults())
    {
        SCOPED_TRACE(fault.m_Name);
        ASSERT_TRUE(IsCaught(fault));
        const std::size_t before = mallinfo2().uordblks;
        int caught = 0;
        for (int round = 0; round < ROUNDS; ++round)
            caught += IsCaught(fault) ? 1 : 0;
        EXPECT_EQ(caught, ROUNDS);
        EXPECT_EQ(mallinfo2().uordblks, before) << "memory is left behind";
        EXPECT_EQ(IsCaughtAsMath(fault), fault.m_IsMath);
        EXPECT_TRUE(IsCaughtAs<CWin32Exception>(fault.m_Raise));
        std::printf("%-32s %-24s %s\n", fault.m_Name, fault.m_Class, fault.m_IsMath ? "yes" : "no");
    }
}

#ifndef __clang__ // which throws from calls alone, so it has no fault to catch

/// An object of the function that faults.
struct CWitness
{
    explicit CWitness(int& count) : m_Count(count) {}
    ~CWitness() { ++m_Count; }
    int& m_Count;
};

TEST(Win32ExceptionTest, TheFaultingFunctionsOwnObjectsAndHandlersCount)
{
    if (!IsInFreshProcess())
        return;
    CWin32Exception::SetTranslator();
    char* volatile null = nullptr;
    int destroyed = 0;
    try
    {
        const CWitness witness(destroyed);
        *null = 1;
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CWin32Exception* exception)
    {
        const CExceptionGuard guard(exception);
        EXPECT_NE(dynamic_cast<CAccessViolation*>(exception), nullptr);
        EXPECT_EQ(destroyed, 1);
    }
}

TEST(Win32ExceptionTest, FloatingPointTrapsAreAsBeforeTheFault)
{
    if (!IsInFreshProcess())
        return;
    CWin32Exception::SetTranslator();
    feenableexcept(FE_DIVBYZERO);
    fesetround(FE_UPWARD);

    EXPECT_TRUE(IsCaughtAs<CAccessViolation>(WriteNull));

    EXPECT_EQ(fegetexcept(), FE_DIVBYZERO);
    EXPECT_EQ(fegetround(), FE_UPWARD);
    fedisableexcept(FE_ALL_EXCEPT);
    fesetround(FE_TONEAREST);
}

/// An object whose end needs room on the stack.
struct CRoomyWitness
{
    explicit CRoomyWitness(int& count) : m_Count(count) {}
    ~CRoomyWitness()
    {
        volatile char room[8192];
        room[0] = 1;
        m_Count += room[0];
    }
    int& m_Count;
};

[[gnu::noinline]] int RecurseWithWitnesses(int& made, int& destroyed)
{
    const CRoomyWitness witness(destroyed);
    volatile char frame[1000];
    frame[0] = 1;
    ++made;
    return made < 0 ? 0 : RecurseWithWitnesses(made, destroyed) + frame[0];
}

TEST(Win32ExceptionTest, AfterAStackOverflowEveryFramesObjectsAreDestroyed)
{
    if (!IsInFreshProcess())
        return;
    CWin32Exception::SetTranslator();
    for (int round = 0; round < 5; ++round)
    {
        int made = 0;
        int destroyed = 0;
        try
        {
            RecurseWithWitnesses(made, destroyed);
        }
        catch (CWin32UserException* exception)
        {
            const CExceptionGuard guard(exception);
            EXPECT_EQ(exception->GetCode(), FAULT_STACK_OVERFLOW);
        }
        EXPECT_GT(made, 1000);
        EXPECT_LE(made - destroyed, 1); // the last one was perhaps not made any more
    }
}

#endif

template <typename T>
bool IsMade(unsigned int code)
{
    try
    {
        CWin32Exception::Translator(code, nullptr);
        return false;
    }
    catch (CWin32Exception* exception)
    {
        const CExceptionGuard guard(exception);
        return typeid(*exception) == typeid(T);
    }
}

const struct
{
    unsigned int Code;
    unsigned int Bit;
    bool (*IsMade)(unsigned int code);
} TABLE[] = {
    {0xC0000005, 0x1, IsMade<CAccessViolation>},
    {0x80000003, 0x2, IsMade<CBreakpoint>},
    {0x80000002, 0x4, IsMade<CDatatypeMisalignment>},
    {0x80000004, 0x8, IsMade<CSingleStep>},
    {0xC000008C, 0x10, IsMade<CArrayBoundsExceeded>},
    {0xC000008D, 0x20, IsMade<CFltDenormalOperand>},
    {0xC000008E, 0x40, IsMade<CFltDivideByZero>},
    {0xC000008F, 0x80, IsMade<CFltInexactResult>},
    {0xC0000090, 0x100, IsMade<CFltInvalidOperation>},
    {0xC0000091, 0x200, IsMade<CFltOverflow>},
    {0xC0000092, 0x400, IsMade<CFltStackCheck>},
    {0xC0000093, 0x800, IsMade<CFltUnderflow>},
    {0xC0000094, 0x1000, IsMade<CIntDivideByZero>},
    {0xC0000095, 0x2000, IsMade<CIntOverflow>},
    {0xC0000096, 0x4000, IsMade<CPrivInstruction>},
    {0xC0000025, 0x8000, IsMade<CNoncontinuableException>},
    {0xC000013A, 0x10000, IsMade<CWin32UserException>},
    {0, 0x10000, IsMade<CWin32UserException>},
};

TEST(Win32ExceptionTest, EveryCodeHasItsClassAndBit)
{
    for (const auto& row : TABLE)
    {
        SCOPED_TRACE(row.Code);
        EXPECT_TRUE(row.IsMade(row.Code));

        EXPECT_EQ(CWin32Exception::Translate(0, row.Bit), ~0U);
        EXPECT_FALSE(row.IsMade(row.Code)) << "its bit is clear";
        EXPECT_EQ(CWin32Exception::Translate(row.Bit, row.Bit | 1U << 20), ~row.Bit);
        EXPECT_EQ(CWin32Exception::Translate(0, 0), ~(1U << 20));
        CWin32Exception::Translate(~0U, ~0U);
    }
}

TEST(Win32ExceptionTest, CopiesAreObjectsOfTheirOwn)
{
    const CWin32UserException original(7);
    const CWin32UserException copy(original);
    const CIntOverflow overflow;
    const CIntOverflow second(overflow);

    EXPECT_EQ(copy.GetCode(), 7U);
    EXPECT_EQ(CWin32UserException().GetCode(), 0U);
    EXPECT_NE(dynamic_cast<const CMathException*>(&second), nullptr);
}

TEST(Win32ExceptionTest, WhatIsNotTranslatedReachesTheHandlerThatStoodBefore)
{
    EXPECT_EQ(HowEnds(
                  []
                  {
                      CWin32Exception::SetTranslator();
                      CWin32Exception::Translate(0, 0x1);
                      WriteNull();
                  }),
              STOOD_BEFORE)
        << "a clear bit";
    EXPECT_EQ(HowEnds(
                  []
                  {
                      CWin32Exception::SetTranslator();
                      std::raise(SIGFPE);
                  }),
              STOOD_BEFORE)
        << "a signal that is no fault";
    EXPECT_EQ(HowEnds(
                  []
                  {
                      CWin32Exception::SetTranslator();
                      _set_se_translator(nullptr);
                      WriteNull();
                  }),
              STOOD_BEFORE)
        << "a thread that was uncovered again";

    CChildProcess nobody(
        []
        {
            for (const int signal : {SIGSEGV, SIGTRAP})
                std::signal(signal, SIG_DFL);
            CWin32Exception::SetTranslator();
            CWin32Exception::Translate(0, 0x1);
            WriteNull();
            return 0;
        });
    EXPECT_EQ(nobody.Wait(), -1) << "where nobody stood before, the system ends the process";
}

TEST(Win32ExceptionThreadsTest, OnlyTheFirstCallersThreadIsCovered)
{
    EXPECT_EQ(HowEnds(
                  []
                  {
                      CWin32Exception::SetTranslator();
                      std::thread(
                          []
                          {
                              CWin32Exception::SetTranslator(); // does nothing
                              WriteNull();
                          })
                          .join();
                  }),
              STOOD_BEFORE);
}

#ifndef __clang__

TEST(Win32ExceptionThreadsTest, AThreadThatWasCoveredFirstCatchesItsFaults)
{
    if (!IsInFreshProcess())
        return;
    bool isCaught = false;
    std::thread(
        [&isCaught]
        {
            CWin32Exception::SetTranslator();
            isCaught = true;
            for (const CRaisedFault& fault : RaisedFaults())
                isCaught = isCaught && IsCaught(fault);
        })
        .join();
    EXPECT_TRUE(isCaught);
}

#endif

} // namespace
