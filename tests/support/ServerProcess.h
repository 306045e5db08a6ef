#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace utility
{

using CArguments = std::vector<std::string>;

/// Runs a program to its end; throws std::runtime_error with its output unless it ends with 0.
///
/// As the named user if this process may change users, else as it is.
void RunProgram(const CArguments& arguments, const char* user, const std::filesystem::path& log);

/// A server that runs until this object goes.
class CServerProcess
{
public:
    CServerProcess(const CArguments& arguments, const char* user, const std::filesystem::path& log);
    ~CServerProcess();
    CServerProcess(const CServerProcess&) = delete;
    CServerProcess& operator=(const CServerProcess&) = delete;

    bool IsRunning();

    /// Ends it and all that it started at once, as a machine that loses its power would.
    void Kill();
    std::string ReadLog() const;

private:
    int m_Process = -1;
    std::filesystem::path m_Log;
};

/// A small process that waits for the end of this one, however it comes, and removes a folder then.
///
/// Servers end by themselves: the system sends them the signal that CServerProcess asked for.
class CServerWatch
{
public:
    explicit CServerWatch(const std::filesystem::path& folder);
    ~CServerWatch();
    CServerWatch(const CServerWatch&) = delete;
    CServerWatch& operator=(const CServerWatch&) = delete;

private:
    int m_Pipe = -1;
    int m_Process = -1;
};

} // namespace utility
