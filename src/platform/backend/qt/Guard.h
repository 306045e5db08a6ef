#pragma once

#include <exception>
#include <functional>

namespace utility
{

/// Calls something of ours out of an event: what it throws must not pass through the widget
/// library, so the innermost run or wait of the loop passes it on instead.
void CallGuarded(const std::function<void()>& call);

} // namespace utility
