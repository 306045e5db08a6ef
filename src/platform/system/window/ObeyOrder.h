#pragma once

#include <memory>
#include <string_view>

namespace utility
{

/// Takes what another process orders to the main thread, and does it there. What is no order, or is
/// for a window that is gone, is dropped. `ticket` goes once that is done. Any thread.
void ObeyOrderLater(std::string_view text, std::shared_ptr<void> ticket);

} // namespace utility
