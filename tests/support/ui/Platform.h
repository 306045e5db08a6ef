#pragma once

namespace utility
{

/// Tells the window system, before it starts, where a program's windows are shown: on no screen at
/// all, or on one of the program's own.
void PreparePlatform();

} // namespace utility
