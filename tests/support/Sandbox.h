#pragma once

#include "support/TemporaryFolder.h"

namespace utility
{

/// Moves the whole test program away from the user's own files: settings, home, documents,
/// configuration and live windows lie in a temporary folder, zone and locale are fixed.
///
/// Made before the library is used; what the folder holds goes with it.
class CSandbox
{
public:
    CSandbox();

private:
    CTemporaryFolder m_Folder;
};

} // namespace utility
