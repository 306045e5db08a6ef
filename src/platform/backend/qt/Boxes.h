#pragma once

namespace utility
{

struct CBoxRequest;
struct CWarningsRequest;

/// Shows a box on the screen until it is answered; an `ID...` value, 0 if the loop ended before.
/// Main thread.
int ShowBoxOnScreen(const CBoxRequest& request);
int ShowWarningsOnScreen(const CWarningsRequest& request);

} // namespace utility
