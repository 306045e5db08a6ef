#include "platform/ui/drawing/Brush.h"

#include <utility>

namespace utility
{

IMPLEMENT_DYNAMIC(CBrush, CGdiObject)

bool CBrush::CreateSolidBrush(COLORREF colour)
{
    if (m_Kind != EKind::None)
        return false;
    m_Kind = EKind::Solid;
    m_Colour = colour;
    return true;
}

bool CBrush::CreateHollowBrush()
{
    if (m_Kind != EKind::None)
        return false;
    m_Kind = EKind::Hollow;
    return true;
}

bool CBrush::DeleteObject()
{
    return std::exchange(m_Kind, EKind::None) != EKind::None;
}

} // namespace utility
