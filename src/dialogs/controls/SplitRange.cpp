#include "dialogs/controls/SplitRange.h"

#include <algorithm>
#include <cstdint>

namespace utility
{

int CSplitRange::Clamp(int position) const
{
    const int end = std::max(m_Length - m_Bar, 0);
    const int highest = end - m_SecondMinimum;
    const int lowest = std::min(m_FirstMinimum, end);
    return std::clamp(position, lowest, std::max(lowest, highest));
}

int CSplitRange::Scale(int position, int newLength) const
{
    const int room = std::max(m_Length - m_Bar, 0);
    CSplitRange changed = *this;
    changed.m_Length = newLength;
    if (room == 0)
        return changed.Clamp(position);
    const std::int64_t newRoom = std::max(newLength - m_Bar, 0);
    return changed.Clamp(static_cast<int>((position * newRoom + room / 2) / room));
}

} // namespace utility
