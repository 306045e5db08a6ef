#include "MessageLoopSuite.h"

#include <cstdlib>
#include <time.h>

namespace utility
{
namespace
{

std::unique_ptr<IMessageLoop> MakeHeadless()
{
    return MakeHeadlessMessageLoop();
}

INSTANTIATE_TEST_SUITE_P(Headless, MessageLoopTest, testing::Values(&MakeHeadless));
INSTANTIATE_TEST_SUITE_P(Headless, MessageLoopThreadsTest, testing::Values(&MakeHeadless));

TEST(HeadlessMessageLoopTest, InstallingOneHandsBackTheOneBefore)
{
    IMessageLoop& byDefault = GetMessageLoop();
    const auto loop = MakeHeadlessMessageLoop();
    IMessageLoop* previous = SetMessageLoop(loop.get());
    EXPECT_EQ(&GetMessageLoop(), loop.get());
    EXPECT_EQ(SetMessageLoop(previous), loop.get());

    EXPECT_EQ(&GetMessageLoop(), &byDefault);
    EXPECT_TRUE(byDefault.IsMainThread());
}

double ProcessorSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

TEST(HeadlessMessageLoopTest, TakesNoProcessorWhileNothingWaits)
{
    const DWORD milliseconds = std::getenv("UTILITY_NIGHTLY") ? 10000 : 200;
    const auto loop = MakeHeadlessMessageLoop();
    loop->SetIdleHandler([](LONG) { return false; });
    loop->SetTimer(milliseconds, [&] { loop->Quit(0); });
    const double before = ProcessorSeconds();
    loop->Run();

    EXPECT_LT(ProcessorSeconds() - before, 0.02); // a loop that spins takes all of the time
}

} // namespace
} // namespace utility
