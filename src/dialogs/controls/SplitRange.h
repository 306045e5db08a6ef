#pragma once

#include "platform/base/Export.h"

namespace utility
{

/// Where the bar between two panes may stand; all in pixels along the panes.
struct UTILITY_UI_API CSplitRange
{
    int m_Length = 0; // of both panes and the bar
    int m_Bar = 0;
    int m_FirstMinimum = 0;
    int m_SecondMinimum = 0;

    /// The position that is nearest to a wanted one. Where there is no room for both minimums the
    /// second pane gives way, then the first.
    int Clamp(int position) const;

    /// Where the bar goes when the panes' length changes: both keep their part of it.
    int Scale(int position, int newLength) const;
};

} // namespace utility
