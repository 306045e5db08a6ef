#pragma once

#include "platform/system/window/Wnd.h"

class QWidget;

namespace utility
{

/// The widget behind a window; fails the test, and throws, if there is none.
QWidget& FindWidget(const CWnd& window);

/// Handles all that waits, what it leads to included.
void Settle();

} // namespace utility
