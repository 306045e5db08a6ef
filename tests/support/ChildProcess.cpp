#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr char FRESH_PROCESS[] = "UTILITY_TEST_FRESH_PROCESS";

} // namespace

CChildProcess::CChildProcess(const std::function<int()>& work) : m_Process(fork())
{
    if (m_Process < 0)
        throw std::runtime_error("cannot fork");
    if (m_Process == 0)
        _exit(work());
}

CChildProcess::~CChildProcess()
{
    Kill();
}

int CChildProcess::Wait()
{
    int status = 0;
    if (m_Process <= 0 || waitpid(m_Process, &status, 0) != m_Process)
        return -1;
    m_Process = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void CChildProcess::Kill()
{
    if (m_Process <= 0)
        return;
    kill(m_Process, SIGKILL);
    Wait();
}

bool IsInFreshProcess()
{
    if (std::getenv(FRESH_PROCESS) != nullptr)
        return true;
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    const std::string filter =
        std::string("--gtest_filter=") + test.test_suite_name() + "." + test.name();
    CChildProcess child(
        [&filter]
        {
            setenv(FRESH_PROCESS, "1", 1);
            execl("/proc/self/exe", "test", filter.c_str(), nullptr);
            return 99;
        });
    EXPECT_EQ(child.Wait(), 0) << "in a process of its own";
    return false;
}

void DropRights()
{
    constexpr uid_t NOBODY = 65534;
    if (geteuid() == 0 && (setgid(NOBODY) != 0 || setuid(NOBODY) != 0))
        _exit(99);
}

} // namespace utility
