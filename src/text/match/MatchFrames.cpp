#include "text/match/MatchFrames.h"

#include <algorithm>

namespace utility
{

void CMatchFrames::Grow()
{
    const bool isFirst = m_All.empty();
    m_Capacity *= 2;
    m_All.resize(m_Capacity);
    if (isFirst)
        std::copy_n(m_First, m_Count, m_All.begin());
    m_Frames = m_All.data();
}

} // namespace utility
