#pragma once

namespace utility
{

/// A place in a list or map, opaque; null marks the end. Good until its element is removed.
struct __POSITION;
using POSITION = __POSITION*;

} // namespace utility
