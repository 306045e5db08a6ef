#include "platform/system/Faults.h"

#include "platform/backend/posix/FaultFrame.h"
#include "platform/backend/posix/StackReserve.h"

#include <iterator>
#include <memory>
#include <mutex>
#include <pthread.h>
#include <utility>

namespace utility
{

namespace
{

/// What the handler must know of its thread. Plain data in the thread's first block, so that a
/// handler on any thread may look at it without a call.
struct CCover
{
    CFaultTranslator m_Translator;
    CAddressRange m_Stack;
    CAddressRange m_AlternateStack;
    CStackReserve m_Reserve;
};
[[gnu::tls_model("initial-exec")]] constinit thread_local CCover t_Cover = {};

} // namespace

#if UTILITY_TRANSLATES_FAULTS

namespace
{

constexpr int SIGNALS[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP};
constexpr std::size_t ALTERNATE_SIZE = 128U
                                       << 10; // bytes: room for registers, throwing and unwinding

/// The handlers that stood before, each at its signal's place in the list.
struct sigaction g_Before[std::size(SIGNALS)];

const struct sigaction& BeforeOf(int signal)
{
    for (std::size_t i = 0; i < std::size(SIGNALS); ++i)
    {
        if (SIGNALS[i] == signal)
            return g_Before[i];
    }
    return g_Before[0];
}

/// Nobody stood before: the system ends the process, at the faulting instruction if that runs
/// again.
void LeaveToSystem(int signal, const siginfo_t& info, bool isIgnored)
{
    const bool isSent = info.si_code <= 0;
    if (isSent && isIgnored)
        return;
    std::signal(signal, SIG_DFL);
    if (isSent || signal == SIGTRAP)
        std::raise(signal);
}

void PassOn(int signal, siginfo_t* info, void* context)
{
    const struct sigaction& before = BeforeOf(signal);
    if ((before.sa_flags & SA_SIGINFO) != 0)
        before.sa_sigaction(signal, info, context);
    else if (before.sa_handler != SIG_DFL && before.sa_handler != SIG_IGN)
        before.sa_handler(signal);
    else
        LeaveToSystem(signal, *info, before.sa_handler == SIG_IGN);
}

/// Throws where the thread is covered and its translator wants to.
void OnFault(int signal, siginfo_t* info, void* context)
{
    ClearAlignmentCheck();
    ucontext_t& registers = *static_cast<ucontext_t*>(context);
    const mcontext_t found = registers.uc_mcontext;
    CFaultFrame frame(signal, *info, registers);
    // A fault in here, or in the unwinding from here, is nobody's to catch.
    const bool isOwn = t_Cover.m_AlternateStack.Holds(frame.GetStackPointer());
    if (t_Cover.m_Translator != nullptr && frame.IsFault() && !isOwn)
    {
        const unsigned int code = frame.GetCode(t_Cover.m_Stack);
        const void* const address = frame.GetAddress();
        if (code == FAULT_STACK_OVERFLOW)
            t_Cover.m_Reserve.Open();
        else
            t_Cover.m_Reserve.Close(frame.GetStackPointer());
        frame.StandOnInstruction(t_Cover.m_Stack);
        _EXCEPTION_POINTERS pointers = {frame.GetInstruction(), address};
        frame.RestoreFloatControl();
        t_Cover.m_Translator(code, &pointers);
        registers.uc_mcontext = found;
    }
    PassOn(signal, info, context);
}

void InstallHandlers()
{
    struct sigaction action = {};
    action.sa_sigaction = OnFault;
    // An exception leaves the handler without a return, so the signal must not stay blocked.
    action.sa_flags = SA_SIGINFO | SA_NODEFER | SA_ONSTACK;
    for (std::size_t i = 0; i < std::size(SIGNALS); ++i)
    {
        sigaction(SIGNALS[i], nullptr, &g_Before[i]);
        sigaction(SIGNALS[i], &action, nullptr);
    }
}

CAddressRange StackOfThread()
{
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return {};
    void* low = nullptr;
    std::size_t size = 0;
    pthread_attr_getstack(&attributes, &low, &size);
    pthread_attr_destroy(&attributes);
    return {static_cast<const char*>(low), size};
}

/// A stack for the handler, which has none where the thread's own is used up.
class CAlternateStack
{
public:
    CAlternateStack() : m_Bytes(std::make_unique<char[]>(ALTERNATE_SIZE))
    {
        stack_t stack = {};
        stack.ss_sp = m_Bytes.get();
        stack.ss_size = ALTERNATE_SIZE;
        sigaltstack(&stack, &m_Before);
        t_Cover.m_AlternateStack = {m_Bytes.get(), ALTERNATE_SIZE};
        t_Cover.m_Stack = StackOfThread();
        t_Cover.m_Reserve.SetUp(t_Cover.m_Stack);
    }
    ~CAlternateStack()
    {
        t_Cover.m_Reserve.GiveBack();
        t_Cover = {};
        sigaltstack(&m_Before, nullptr);
    }
    CAlternateStack(const CAlternateStack&) = delete;
    CAlternateStack& operator=(const CAlternateStack&) = delete;

private:
    std::unique_ptr<char[]> m_Bytes;
    stack_t m_Before = {};
};

void CoverThread()
{
    static std::once_flag isInstalled;
    static thread_local const CAlternateStack stack;
    std::call_once(isInstalled, InstallHandlers);
}

} // namespace

bool CanTranslateFaults()
{
    return true;
}

void RenewStackReserve()
{
    const char here = 0;
    t_Cover.m_Reserve.Close(&here);
}

#else

namespace
{

void CoverThread() {}

} // namespace

bool CanTranslateFaults()
{
    return false;
}

void RenewStackReserve() {}

#endif

CFaultTranslator _set_se_translator(CFaultTranslator translator)
{
    if (translator != nullptr)
        CoverThread();
    return std::exchange(t_Cover.m_Translator, translator);
}

} // namespace utility
