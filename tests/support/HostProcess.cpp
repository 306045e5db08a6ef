#include "support/HostProcess.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace utility
{

namespace
{

struct CPipe
{
    int m_Ends[2] = {-1, -1}; // to be read, to be written

    CPipe()
    {
        if (pipe2(m_Ends, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
    }
};

} // namespace

CHostProcess::CHostProcess(const std::vector<std::string>& arguments, const std::string& program)
{
    const CPipe input;
    const CPipe output;
    std::vector<std::string> texts = {program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input.m_Ends[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.m_Ends[1], STDOUT_FILENO);
    const int error =
        posix_spawn(&m_Process, program.c_str(), &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(input.m_Ends[0]);
    close(output.m_Ends[1]);
    m_Input = fdopen(input.m_Ends[1], "w");
    m_Output = fdopen(output.m_Ends[0], "r");
    if (error != 0)
        throw std::runtime_error("no host to start");
}

CHostProcess::CHostProcess(CHostProcess&& other) noexcept
    : m_Process(std::exchange(other.m_Process, 0)),
      m_IsKilled(other.m_IsKilled),
      m_Input(std::exchange(other.m_Input, nullptr)),
      m_Output(std::exchange(other.m_Output, nullptr))
{
}

CHostProcess& CHostProcess::operator=(CHostProcess&& other) noexcept
{
    std::swap(m_Process, other.m_Process);
    std::swap(m_IsKilled, other.m_IsKilled);
    std::swap(m_Input, other.m_Input);
    std::swap(m_Output, other.m_Output);
    return *this;
}

CHostProcess::~CHostProcess()
{
    if (m_Input)
        std::fclose(m_Input); // its sign to end
    int status = 0;
    if (m_Process > 0 && waitpid(m_Process, &status, 0) == m_Process && !m_IsKilled)
    {
        EXPECT_EQ(status, 0) << "the host of process " << m_Process;
    }
    if (m_Output)
        std::fclose(m_Output);
}

void CHostProcess::Tell(const std::string& line)
{
    std::fputs((line + "\n").c_str(), m_Input);
    std::fflush(m_Input);
}

std::string CHostProcess::Hear()
{
    std::string line;
    for (int byte = std::fgetc(m_Output); byte != EOF && byte != '\n'; byte = std::fgetc(m_Output))
        line += static_cast<char>(byte);
    return line;
}

std::string CHostProcess::Ask(const std::string& line)
{
    Tell(line);
    return Hear();
}

void CHostProcess::Kill()
{
    siginfo_t end = {};
    m_IsKilled = true;
    kill(m_Process, SIGKILL);
    waitid(P_PID, static_cast<id_t>(m_Process), &end, WEXITED | WNOWAIT);
}

} // namespace utility
