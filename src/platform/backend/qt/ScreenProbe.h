#pragma once

#include "platform/base/String.h"

namespace utility
{

/// Whether there is a screen that windows can be shown on; false with a sentence that tells what
/// was tried. The widget library itself ends the process when it finds none.
bool FindScreen(CString& reason);

} // namespace utility
