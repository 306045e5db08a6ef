#pragma once

#include <cstdio>
#include <string>
#include <sys/types.h>
#include <vector>

namespace utility
{

/// An instance of a host in a process of its own, driven by lines: tests/host/InstanceHost.cpp.
///
/// It ends with this object, and is expected to end well, or by Kill. A host that is gone answers
/// "".
class CHostProcess
{
public:
    explicit CHostProcess(const std::vector<std::string>& arguments,
                          const std::string& program = UTILITY_INSTANCE_HOST);
    ~CHostProcess();
    CHostProcess(CHostProcess&& other) noexcept;
    CHostProcess& operator=(CHostProcess&& other) noexcept; // the two change places

    unsigned GetId() const { return static_cast<unsigned>(m_Process); }

    void Tell(const std::string& line);
    /// The next line that it says: "ready" at first.
    std::string Hear();
    std::string Ask(const std::string& line);

    /// Ends it wherever it is, and returns once it has ended. Until this object goes, the system
    /// keeps it as a dead process of which nobody has taken note.
    void Kill();

private:
    pid_t m_Process = 0;
    bool m_IsKilled = false;
    std::FILE* m_Input = nullptr; // the process's
    std::FILE* m_Output = nullptr;
};

} // namespace utility
