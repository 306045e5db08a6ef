#pragma once

namespace partsdesk
{

/// Adds the desk's dialogs and pictures to the tables of the process.
void AddResources();

} // namespace partsdesk
