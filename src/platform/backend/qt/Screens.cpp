#include "platform/backend/qt/Values.h"
#include "platform/ui/Monitor.h"

#include <QGuiApplication>
#include <QScreen>

namespace utility
{

std::vector<CMonitor> GetMonitors()
{
    std::vector<CMonitor> monitors;
    for (const QScreen* screen : QGuiApplication::screens())
        monitors.push_back({ToRect(screen->geometry()), ToRect(screen->availableGeometry())});
    if (monitors.empty())
        monitors.emplace_back(); // the last screen has just gone
    return monitors;
}

} // namespace utility
