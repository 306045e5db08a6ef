#include "platform/base/Encoding.h"
#include "platform/ui/WindowSystem.h"

#include "support/TemporaryFolder.h"
#include "support/ui/ScreenServer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>

namespace utility
{
namespace
{

/// Runs the window host with such an environment; its exit code, or -1 if a signal ended it.
int RunHost(const std::string& environment, const std::string& output)
{
    const std::string line = "env -u WAYLAND_DISPLAY -u DISPLAY -u QT_QPA_PLATFORM " + environment +
                             " " UTILITY_WINDOW_HOST " >'" + output + "' 2>&1";
    const int status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(ScreenLossTest, WithoutAScreenAHostEndsWithASentence)
{
    const struct
    {
        const char* m_Environment;
        const char* m_Sentence;
    } rows[] = {
        {"", "There is no screen to show windows on: neither DISPLAY nor WAYLAND_DISPLAY is set."},
        {"DISPLAY=:4711", "The screen \":4711\" cannot be reached."},
        {"DISPLAY=nonsense", "The screen \"nonsense\" cannot be reached."},
        {"WAYLAND_DISPLAY=wayland-4711", "The screen \"wayland-4711\" cannot be reached."},
        {"QT_QPA_PLATFORM=xcb DISPLAY=:4711", "The screen \":4711\" cannot be reached."},
    };
    const CTemporaryFolder folder;
    const std::string output = (folder.GetNativePath() / "said").string();
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Environment);
        EXPECT_EQ(RunHost(row.m_Environment, output), NO_DISPLAY_EXIT);
        EXPECT_EQ(folder.Read(u"said"), std::string(row.m_Sentence) + "\n");
    }
}

TEST(ScreenLossTest, AScreenThatGoesAwayIsNoGoodEnd)
{
    CScreenServer screen;
    const CTemporaryFolder folder;
    const std::string said = (folder.GetNativePath() / "said").string();
    ASSERT_EQ(mkfifo(said.c_str(), 0600), 0);
    int code = 0;
    std::thread host([&] { code = RunHost("DISPLAY=" + screen.GetDisplay(), said); });
    std::string word;
    std::ifstream output(said);
    output >> word;
    EXPECT_EQ(word, "shown");
    screen.Kill();
    output.ignore(1 << 20); // what else it says
    host.join();

    EXPECT_NE(code, 0);
}

} // namespace
} // namespace utility
