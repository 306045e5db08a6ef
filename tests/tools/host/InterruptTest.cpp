#include "utility/host/Interrupt.h"

#include <gtest/gtest.h>

#include <csignal>

namespace utility
{

TEST(InterruptTest, FirstKeyPressIsOnlyNotedOnceACommandAsks)
{
    EXPECT_FALSE(IsInterrupted());

    std::raise(SIGINT); // would end this process, had nobody asked

    EXPECT_TRUE(IsInterrupted());
    EXPECT_TRUE(IsInterrupted());                     // the key stays noted
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_DFL); // a second key press would end the process
}

} // namespace utility
