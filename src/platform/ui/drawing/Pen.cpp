#include "platform/ui/drawing/Pen.h"

#include <utility>

namespace utility
{

IMPLEMENT_DYNAMIC(CPen, CGdiObject)

bool CPen::CreatePen(int style, int width, COLORREF colour)
{
    if (m_IsMade || width < 0)
        return false;
    m_IsMade = true;
    m_Style = style;
    m_Width = width;
    m_Colour = colour;
    return true;
}

bool CPen::DeleteObject()
{
    return std::exchange(m_IsMade, false);
}

} // namespace utility
