#pragma once

namespace utility
{

class CCommandCall;

/// zip extract: entries to files below a folder, nothing anywhere else.
int ExtractZip(const CCommandCall& call);

} // namespace utility
