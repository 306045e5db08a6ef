#include "frame/ProgramPath.h"

#include "platform/base/String.h"
#include "platform/system/process/Process.h"
#include "platform/system/window/WinApp.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(ProgramPathTest, IsTheFolderOfTheProgramWithItsSeparator)
{
    EXPECT_EQ(GetProgramPath() + u"FrameTests", GetModuleFileNameW());
}

TEST(ProgramPathTest, ExeNameIsTheWholePathWithoutExtension)
{
    CWinApp app;
    SetApplicationExeName();

    EXPECT_EQ(app.m_pszExeName, GetProgramPath() + u"FrameTests");
}

} // namespace
} // namespace utility
