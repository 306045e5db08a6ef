#pragma once

namespace utility
{

/// From now on a screen reader is told that a dialog is one, and not just a window.
void InstallDialogRole();

} // namespace utility
