#pragma once

#include <functional>

namespace utility
{

/// What work adds to the peak of the memory of a process of its own, in megabytes: 255 for more, or
/// if it failed.
///
/// What the work prints and asserts is lost, so it tells by its result whether it succeeded.
int PeakMegabytes(const std::function<bool()>& work);

} // namespace utility
