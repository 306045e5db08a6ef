#include "platform/base/GlobalMemory.h"

#include <gtest/gtest.h>

#include <cstring>

namespace utility
{

TEST(GlobalMemoryTest, GrowingKeepsTheBytesAndClearsTheRest)
{
    HGLOBAL block = GlobalAlloc(GHND, 3);
    ASSERT_NE(block, nullptr);
    std::memcpy(GlobalLock(block), "abc", 3);

    block = GlobalReAlloc(block, 5, GHND);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalSize(block), 5U);
    EXPECT_EQ(std::memcmp(GlobalLock(block), "abc\0\0", 5), 0);
    EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST(GlobalMemoryTest, NullHandleIsHarmless)
{
    EXPECT_EQ(GlobalLock(nullptr), nullptr);
    EXPECT_EQ(GlobalSize(nullptr), 0U);
    EXPECT_FALSE(GlobalUnlock(nullptr));
    EXPECT_EQ(GlobalReAlloc(nullptr, 1, 0), nullptr);
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
}

} // namespace utility
