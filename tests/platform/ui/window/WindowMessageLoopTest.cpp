#include "platform/ui/WindowSystem.h"

#include "../../system/window/MessageLoopSuite.h"

namespace utility
{
namespace
{

INSTANTIATE_TEST_SUITE_P(Windows, MessageLoopTest, testing::Values(&MakeWindowMessageLoop));
INSTANTIATE_TEST_SUITE_P(Windows, MessageLoopThreadsTest, testing::Values(&MakeWindowMessageLoop));

} // namespace
} // namespace utility
