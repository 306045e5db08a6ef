#include "platform/backend/headless/WindowPeer.h"

namespace utility
{

std::unique_ptr<IWindowPeerFactory> MakeHeadlessWindowPeerFactory()
{
    return std::make_unique<CHeadlessWindowPeerFactory>();
}

} // namespace utility
