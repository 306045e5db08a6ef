#include "support/ui/Platform.h"
#include "support/ui/ScreenServer.h"

#include <cstdlib>

namespace utility
{

void PreparePlatform()
{
    static const CScreenServer screen; // ends behind the window system
    setenv("DISPLAY", screen.GetDisplay().c_str(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    unsetenv("WAYLAND_DISPLAY");
}

} // namespace utility
