#include "platform/system/window/WindowPeer.h"

namespace utility
{

namespace
{

constinit IWindowPeerFactory* installedFactory = nullptr;

} // namespace

IWindowPeerFactory& GetWindowPeerFactory()
{
    // Never destroyed: windows may go as late as static objects do.
    static IWindowPeerFactory& headless = *MakeHeadlessWindowPeerFactory().release();
    return installedFactory ? *installedFactory : headless;
}

IWindowPeerFactory* SetWindowPeerFactory(IWindowPeerFactory* factory)
{
    return std::exchange(installedFactory, factory);
}

} // namespace utility
