// A host in small with one window: it says "shown" once that is on the screen, and ends when the
// window is closed.

#include "platform/base/Encoding.h"
#include "platform/base/Rect.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/WindowSystem.h"

#include <iostream>

namespace utility
{
namespace
{

class CHostWnd : public CWnd
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_ACTIVATE)
            std::cout << "shown" << std::endl;
        if (message == WM_DESTROY)
            GetMessageLoop().Quit(0);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

int RunHost(int argc, char** argv)
{
    CWindowSystem windows;
    CString reason;
    if (!windows.Start(argc, argv, reason))
    {
        std::cerr << ToUtf8(reason.View()) << '\n';
        return NO_DISPLAY_EXIT;
    }
    CHostWnd frame;
    if (!frame.CreateEx(0, u"Frame", u"Host", WS_CAPTION | WS_SYSMENU, CRect(0, 0, 300, 200),
                        nullptr))
        return 1;
    frame.ShowWindow(SW_SHOW);
    frame.SetForegroundWindow();
    return GetMessageLoop().Run();
}

} // namespace
} // namespace utility

int main(int argc, char** argv)
{
    return utility::RunHost(argc, argv);
}
