#include "support/ui/Platform.h"

#include <cstdlib>

namespace utility
{

void PreparePlatform()
{
    setenv("QT_QPA_PLATFORM", "offscreen:configfile=" UTILITY_TEST_DATA "/screens/two.json", 1);
}

} // namespace utility
