#include "platform/system/SystemVersion.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(SystemVersionTest, KernelAndDistributionAreTold)
{
    OSVERSIONINFOW version{};
    EXPECT_FALSE(GetVersionExW(version)); // its size was not set

    version.dwOSVersionInfoSize = OSVERSIONINFO_SIZE;
    ASSERT_TRUE(GetVersionExW(version));
    EXPECT_EQ(version.dwPlatformId, VER_PLATFORM_UNIX);
    EXPECT_GT(version.dwMajorVersion, 2U);
    EXPECT_EQ(version.szCSDVersion, GetDistributionName().Left(127));
    EXPECT_LT(GetDistributionName().Find(u'"'), 0);
    EXPECT_EQ(GetMachineWordSize(), static_cast<int>(sizeof(void*) * 8));
}

} // namespace utility
