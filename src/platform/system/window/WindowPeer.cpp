#include "platform/system/window/WindowPeer.h"

#include "platform/backend/headless/WindowPeer.h"

namespace utility
{

namespace
{

constinit IWindowPeerFactory* installedFactory = nullptr;

} // namespace

IWindowPeerFactory& GetWindowPeerFactory()
{
    static CHeadlessWindowPeerFactory headless;
    return installedFactory ? *installedFactory : headless;
}

IWindowPeerFactory* SetWindowPeerFactory(IWindowPeerFactory* factory)
{
    return std::exchange(installedFactory, factory);
}

} // namespace utility
