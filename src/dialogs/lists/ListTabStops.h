#pragma once

#include "platform/base/Export.h"

#include <functional>
#include <span>
#include <vector>

namespace utility
{

class CListBox;
class CString;

/// Sets the tab stops of a list (LBS_USETABSTOPS) so that each column is as wide as its widest
/// text. After the rows are there.
UTILITY_UI_API void SetListTabStops(CListBox& list);

/// Where the columns begin, but for the first: behind the widest text of the one before, with a
/// gap. Pixels; `getWidth` tells that of a text.
UTILITY_UI_API std::vector<int> PlanTabStops(std::span<const CString> rows,
                                             const std::function<int(const CString&)>& getWidth);

} // namespace utility
