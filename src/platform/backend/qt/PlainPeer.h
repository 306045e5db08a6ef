#pragma once

#include "platform/backend/qt/QtWindowPeer.h"

namespace utility
{

/// A window without a look of its own, that paints what its owner draws: dialogs, frames, and
/// classes of the host.
std::unique_ptr<CQtWindowPeer> MakePlainPeer(const CWindowRequest& request, QWidget* parent);

/// How the window system shall dress a top-level window of such styles.
Qt::WindowFlags WindowFlagsOf(const CWindowRequest& request);

} // namespace utility
