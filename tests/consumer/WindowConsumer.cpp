// A host with a window in a few lines: it shows one, handles what waits, and ends it.

#include "platform/base/Encoding.h"
#include "platform/base/Rect.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/WindowSystem.h"

#include <cstdio>

using namespace utility;

int main(int argc, char** argv)
{
    CWindowSystem windows;
    CString reason;
    if (!windows.Start(argc, argv, reason))
    {
        std::fprintf(stderr, "%s\n", ToUtf8(reason.View()).c_str());
        return NO_DISPLAY_EXIT;
    }
    CWnd frame;
    const bool isMade = frame.CreateEx(0, u"Frame", u"Consumer", WS_CAPTION | WS_SYSMENU,
                                       CRect(0, 0, 320, 200), nullptr);
    frame.ShowWindow(SW_SHOW);
    GetMessageLoop().HandleWaiting();
    const bool isShown = isMade && frame.IsWindowVisible();
    std::printf("window: %s\n", isShown ? "all well" : "failed");
    return isShown ? 0 : 1;
}
