#pragma once

#include "frame/AppLogContext.h"

namespace utility
{

/// The trace context of connections and catalogues.
const CAppLogContext& DBAContext();

} // namespace utility
