#pragma once

#include "platform/ui/DialogText.h"

namespace utility
{

/// The layouts of the library's own dialogs, as CResourceTables shows them.
CDialogText GetOwnDialogs();

} // namespace utility
