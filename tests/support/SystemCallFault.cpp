#include "support/SystemCallFault.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <elf.h>
#include <iterator>
#include <signal.h>
#include <stdexcept>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#ifndef __x86_64__
#error "Registers of this processor are to be added here"
#endif

namespace utility
{

namespace
{

constexpr long FILE_CALLS[] = {
    SYS_open,
    SYS_openat,
    SYS_creat,
    SYS_write,
    SYS_pwrite64,
    SYS_read,
    SYS_close,
    SYS_fsync,
    SYS_fdatasync,
    SYS_rename,
    SYS_renameat,
    SYS_renameat2,
    SYS_unlink,
    SYS_unlinkat,
    SYS_stat,
    SYS_fstat,
    SYS_lstat,
    SYS_newfstatat,
    SYS_statx,
    SYS_readlink,
    SYS_readlinkat,
    SYS_ftruncate,
    SYS_chmod,
    SYS_fchmod,
    SYS_fchown,
    SYS_fcntl,
    SYS_flock,
    SYS_faccessat,
    439 /* faccessat2 */,
    SYS_lseek,
    SYS_getrandom,
    SYS_getdents64,
    SYS_mkdir,
    SYS_mkdirat,
    SYS_rmdir,
    SYS_utimensat,
};

bool IsFileCall(long number)
{
    return std::find(std::begin(FILE_CALLS), std::end(FILE_CALLS), number) != std::end(FILE_CALLS);
}

[[noreturn]] void RunChild(const std::function<int()>& work)
{
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
        _exit(255);
    raise(SIGSTOP);
    _exit(work());
}

/// Lets the child go on to the next border of a system call; false once it has ended, with
/// `status`.
bool GoOn(pid_t child, int& status)
{
    ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    if (waitpid(child, &status, 0) != child)
        throw std::runtime_error("lost the traced process");
    return !WIFEXITED(status) && !WIFSIGNALED(status);
}

void FailCall(pid_t child, int& status)
{
    user_regs_struct registers = {};
    ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    registers.orig_rax = static_cast<unsigned long long>(-1); // no call at all
    ptrace(PTRACE_SETREGS, child, nullptr, &registers);
    GoOn(child, status);
    ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    registers.rax = static_cast<unsigned long long>(-EIO);
    ptrace(PTRACE_SETREGS, child, nullptr, &registers);
}

CFaultedRun Trace(pid_t child, int callNumber, ESystemCallFault fault)
{
    CFaultedRun run;
    int status = 0;
    int count = 0;
    while (GoOn(child, status)) // the entry of a call
    {
        user_regs_struct registers = {};
        ptrace(PTRACE_GETREGS, child, nullptr, &registers);
        const bool isWanted =
            IsFileCall(static_cast<long>(registers.orig_rax)) && ++count == callNumber;
        run.WasMet = run.WasMet || isWanted;
        if (isWanted && fault == ESystemCallFault::Kills)
        {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            return run;
        }
        if (isWanted)
            FailCall(child, status);
        else if (!GoOn(child, status)) // its end
            break;
    }
    run.Result = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

} // namespace

CFaultedRun RunWithFault(int callNumber, ESystemCallFault fault, const std::function<int()>& work)
{
    const pid_t child = fork();
    if (child < 0)
        throw std::runtime_error("cannot fork");
    if (child == 0)
        RunChild(work);
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status))
        throw std::runtime_error("processes may not be traced here");
    return Trace(child, callNumber, fault);
}

} // namespace utility
