#include "platform/backend/posix/ErrorMap.h"
#include "platform/backend/posix/process/ChildRecord.h"
#include "platform/backend/posix/process/ProgramCall.h"
#include "platform/base/LastError.h"
#include "platform/system/process/Process.h"
#include "platform/system/window/WindowMessages.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <spawn.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr char MINIMISED_VARIABLE[] = "UTILITY_START_MINIMISED"; // "1": show the window minimised

/// How the new process differs from us: no signal blocked or ignored, and perhaps a new session.
class CSpawnAttributes
{
public:
    explicit CSpawnAttributes(bool isDetached)
    {
        ::posix_spawnattr_init(&m_Attributes);
        sigset_t signals;
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&m_Attributes, &signals);
        ::sigaddset(&signals, SIGPIPE);
        ::sigaddset(&signals, SIGCHLD);
        ::posix_spawnattr_setsigdefault(&m_Attributes, &signals);
        const int session = isDetached ? POSIX_SPAWN_SETSID : 0;
        const int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | session;
        ::posix_spawnattr_setflags(&m_Attributes, static_cast<short>(flags));
    }
    ~CSpawnAttributes() { ::posix_spawnattr_destroy(&m_Attributes); }
    CSpawnAttributes(const CSpawnAttributes&) = delete;
    CSpawnAttributes& operator=(const CSpawnAttributes&) = delete;

    const posix_spawnattr_t* Get() const { return &m_Attributes; }

private:
    posix_spawnattr_t m_Attributes;
};

/// The texts as the null-ended array that the system takes; it points into them.
std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> MakeEnvironment(const STARTUPINFOW& startup)
{
    const std::string prefix = std::string(MINIMISED_VARIABLE) + "=";
    std::vector<std::string> variables;
    for (char** variable = environ; variable && *variable; ++variable)
    {
        if (std::strncmp(*variable, prefix.c_str(), prefix.size()) != 0)
            variables.emplace_back(*variable);
    }
    const bool isMinimised = (startup.dwFlags & STARTF_USESHOWWINDOW) != 0 &&
                             startup.wShowWindow == static_cast<WORD>(SW_MINIMIZE);
    if (isMinimised)
        variables.push_back(prefix + "1");
    return variables;
}

bool Fail(DWORD error)
{
    SetLastError(error);
    return false;
}

} // namespace

bool CreateProcessW(const CString& commandLine, DWORD flags, const STARTUPINFOW& startup,
                    PROCESS_INFORMATION& process)
{
    CProgramCall call = FindProgramCall(commandLine.View());
    if (call.m_Program.m_Path.empty())
        return Fail(call.m_Program.m_Error);

    std::vector<std::string> environment = MakeEnvironment(startup);
    const CSpawnAttributes attributes((flags & DETACHED_PROCESS) != 0);
    pid_t id = 0;
    const int error =
        ::posix_spawn(&id, call.m_Program.m_Path.c_str(), nullptr, attributes.Get(),
                      Pointers(call.m_Arguments).data(), Pointers(environment).data());
    if (error != 0)
        return Fail(ErrorFromErrno(error));

    const auto record = std::make_shared<CChildRecord>(id);
    const auto number = static_cast<DWORD>(id);
    process = {AddHandle(record), AddHandle(record), number, number};
    return true;
}

bool GetExitCodeProcess(HANDLE process, DWORD& exitCode)
{
    const std::shared_ptr<CChildRecord> record = FindHandleAs<CChildRecord>(process);
    if (record)
        exitCode = record->GetExitCode();
    return record != nullptr;
}

bool StartsMinimised()
{
    const char* value = std::getenv(MINIMISED_VARIABLE);
    return value != nullptr && std::strcmp(value, "1") == 0;
}

} // namespace utility
