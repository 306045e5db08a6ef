#pragma once

#include "platform/base/Export.h"

namespace utility
{

/// The ready route of `CEvt::SendToAllInstances` to the other running instances of the application:
/// those with the same application name that have a window.
///
/// An instance that shall hear others installs it too; what arrives is sent to its listeners on its
/// main thread. Only the name and the two bare numbers travel, and nothing comes back. Main thread.
UTILITY_CORE_API void InstallInstanceEvents();
UTILITY_CORE_API void RemoveInstanceEvents();

} // namespace utility
