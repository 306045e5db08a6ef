#include "platform/system/process/Process.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(ProcessTest, OwnProgramIsAClassicPath)
{
    const CString program = GetModuleFileNameW();

    EXPECT_EQ(program.Find(u'/'), -1);
    EXPECT_EQ(program.Right(12), u"\\SystemTests");
    EXPECT_GT(GetCurrentProcessId(), 0U);
}

} // namespace utility
