#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/MessageLoop.h"

#include <memory>

namespace utility
{

class CString;

/// The widget half at work: while one lives, windows are real, the main loop is the window
/// system's, and boxes are asked on the screen.
///
/// A host makes one in its main function, on the main thread, before its windows; there is one at a
/// time. Its end puts back what was there before; windows end first.
///
///     CWindowSystem windows;
///     CString reason;
///     if (!windows.Start(argc, argv, reason))
///     {
///         std::cerr << ToUtf8(reason.View()) << '\n';
///         return NO_DISPLAY_EXIT;
///     }
class UTILITY_UI_API CWindowSystem
{
public:
    CWindowSystem();
    ~CWindowSystem();
    CWindowSystem(const CWindowSystem&) = delete;
    CWindowSystem& operator=(const CWindowSystem&) = delete;

    /// False, with a sentence in `reason`, if there is no screen to show windows on. The arguments
    /// must live as long as this. A screen that goes away later ends the process with a code above
    /// 0.
    [[nodiscard]] bool Start(int& argc, char** argv, CString& reason);

private:
    struct CBackend; // platform/backend/qt/Application.cpp
    std::unique_ptr<CBackend> m_Backend;
};

/// What a host answers its caller that finds no screen.
constexpr int NO_DISPLAY_EXIT = 3;

/// A main loop of the calling thread that also handles its windows, as `CWindowSystem` installs it.
/// Needs a window system that has started.
UTILITY_UI_API std::unique_ptr<IMessageLoop> MakeWindowMessageLoop();

} // namespace utility
