#pragma once

namespace utility
{

class CAppLogContext;

/// The trace context of connections and catalogues.
const CAppLogContext& DBAContext();

} // namespace utility
