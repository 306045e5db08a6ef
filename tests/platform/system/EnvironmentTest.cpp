#include "platform/system/Environment.h"

#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(EnvironmentTest, EmptyIsNotAbsentAndBytesAreUtf8)
{
    const CEnvironmentVariable empty("UTILITY_TEST_EMPTY", "");
    const CEnvironmentVariable accented("UTILITY_TEST_\xC3\x89", "caf\xC3\xA9");
    const CEnvironmentVariable absent("UTILITY_TEST_ABSENT", nullptr);

    EXPECT_EQ(_wgetenv(u"UTILITY_TEST_EMPTY"), CString());
    EXPECT_EQ(_wgetenv(u"UTILITY_TEST_\u00C9"), CString(u"caf\u00E9"));
    EXPECT_EQ(_wgetenv(u"UTILITY_TEST_ABSENT"), std::nullopt);
    EXPECT_EQ(_wgetenv(u""), std::nullopt);
}

} // namespace utility
