#include "platform/backend/qt/ScreenProbe.h"

#include "platform/base/Encoding.h"
#include "resources/StringIds.h"

#include <QByteArray>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace utility
{

namespace
{

/// A name that begins with a zero byte stands in the abstract space.
bool CanConnect(const QByteArray& name)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(name.size()) >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) +
                                               static_cast<std::size_t>(name.size()));
    const int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (probe < 0)
        return false;
    const bool isConnected = connect(probe, reinterpret_cast<sockaddr*>(&address), length) == 0;
    close(probe);
    return isConnected;
}

/// ":0.1" and "unix:0" are local; a screen of another machine is left to the window system.
bool CanReachDisplay(const QByteArray& display)
{
    const auto colon = display.lastIndexOf(':');
    if (colon < 0)
        return false;
    const QByteArray host = display.left(colon);
    if (!host.isEmpty() && host != "unix")
        return true;
    const QByteArray number = display.mid(colon + 1).split('.').first();
    const QByteArray path = "/tmp/.X11-unix/X" + number;
    return CanConnect(path) || CanConnect('\0' + path);
}

bool CanReachWayland(const QByteArray& display)
{
    return CanConnect(display.startsWith('/') ? display
                                              : qgetenv("XDG_RUNTIME_DIR") + '/' + display);
}

} // namespace

bool FindScreen(CString& reason)
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM").split(':').first();
    if (!platform.isEmpty() && platform != "xcb" && platform != "wayland")
        return true; // one that needs no screen, as told

    const QByteArray wayland = qgetenv("WAYLAND_DISPLAY");
    const QByteArray display = qgetenv("DISPLAY");
    if ((!wayland.isEmpty() && platform != "xcb" && CanReachWayland(wayland)) ||
        (!display.isEmpty() && platform != "wayland" && CanReachDisplay(display)))
        return true;
    const QByteArray tried = display.isEmpty() ? wayland : display;
    if (tried.isEmpty())
        reason.LoadString(IDS_NO_SCREEN);
    else
    {
        CString form;
        form.LoadString(IDS_SCREEN_UNREACHABLE);
        reason.FormatMessage(form, FromUtf8(tried.toStdString()));
    }
    return false;
}

} // namespace utility
