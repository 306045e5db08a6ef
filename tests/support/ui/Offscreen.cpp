#include "support/ui/Platform.h"

#include <cstdlib>

namespace utility
{

void PreparePlatform()
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0); // unless told otherwise
}

} // namespace utility
