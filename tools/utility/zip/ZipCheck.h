#pragma once

namespace utility
{

class CCommandCall;

/// zip test: entries to nowhere.
int TestZip(const CCommandCall& call);

} // namespace utility
