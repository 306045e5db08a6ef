#pragma once

#include "platform/backend/posix/process/HandleTable.h"

#include <mutex>
#include <optional>
#include <sys/types.h>

namespace utility
{

/// A program that we started, behind its handles: signalled once it has ended.
///
/// Its end is collected by whoever first asks for it. A record that goes before that leaves a
/// thread behind which waits for the end, so no dead process stays.
class CChildRecord : public HandleRecord
{
public:
    explicit CChildRecord(pid_t process);
    ~CChildRecord() override;

    DWORD Wait(DWORD milliseconds) override;

    /// As GetExitCodeProcess.
    DWORD GetExitCode();

private:
    /// True once the program has ended; then its exit code is known.
    bool Collect();
    DWORD WaitByAsking(DWORD milliseconds);

    const pid_t m_Process;
    const int m_Descriptor; // readable after the end; -1 where the system gives none
    std::mutex m_Lock;
    std::optional<DWORD> m_ExitCode;
};

} // namespace utility
