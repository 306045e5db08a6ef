#pragma once

#include "platform/base/Colour.h"
#include "platform/ui/drawing/GdiObject.h"

namespace utility
{

/// How areas are filled: with a colour, or not at all (hollow).
class UTILITY_UI_API CBrush : public CGdiObject
{
    DECLARE_DYNAMIC(CBrush)

public:
    CBrush() = default;
    explicit CBrush(COLORREF colour) { CreateSolidBrush(colour); }

    /// Both false, and nothing is changed, if the brush is made already.
    bool CreateSolidBrush(COLORREF colour);
    bool CreateHollowBrush();
    bool DeleteObject() override;

    /// True for a brush that is not made, too.
    bool IsHollow() const { return m_Kind != EKind::Solid; }
    COLORREF GetColour() const { return m_Colour; }

private:
    enum class EKind
    {
        None,
        Solid,
        Hollow
    };

    EKind m_Kind = EKind::None;
    COLORREF m_Colour = 0;
};

} // namespace utility
