#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <sys/wait.h>

namespace utility
{

namespace
{

class PartsDeskTest : public testing::Test
{
protected:
    /// Runs the program without a terminal; the exit code.
    int Run(const std::string& environment, const std::string& arguments) const
    {
        const std::string folder = m_Folder.GetNativePath().string();
        const std::string line = environment + " '" UTILITY_PARTSDESK "' " + arguments +
                                 " </dev/null >'" + folder + "/output' 2>'" + folder + "/errors'";
        const int status = std::system(line.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    CTemporaryFolder m_Folder;
};

} // namespace

TEST_F(PartsDeskTest, WithoutADisplayItSaysSoAndAnswersThree)
{
    EXPECT_EQ(Run("env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb", ""), 3);

    const std::string errors = m_Folder.Read(u"errors");
    EXPECT_EQ(errors.rfind("partsdesk: ", 0), 0U) << errors;
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
}

TEST_F(PartsDeskTest, HelpNeedsNoDisplayAndWrongUseIsTold)
{
    EXPECT_EQ(Run("env -u DISPLAY QT_QPA_PLATFORM=xcb", "--help"), 0);
    EXPECT_EQ(m_Folder.Read(u"output").rfind("Usage: partsdesk ", 0), 0U);
    EXPECT_EQ(Run("QT_QPA_PLATFORM=offscreen", "one.db two.db"), 2);
}

} // namespace utility
