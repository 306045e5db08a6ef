#pragma once

#include <cstdlib>

/// Ends the process unless the condition holds; the fuzzer, or the replay, notes that as a finding.
inline void Require(bool holds)
{
    if (!holds)
        std::abort();
}
