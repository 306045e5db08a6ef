#pragma once

namespace utility
{

class CAppLogContext;

/// The trace context "Db" of the tool's own work on databases: what a command asked and took.
const CAppLogContext& DbContext();

} // namespace utility
