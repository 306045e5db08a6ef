#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"
#include "platform/base/Size.h"

namespace utility
{

/// How a window's children follow its size, told over rectangles alone.
///
/// One child, the stretch control, takes the growth, and the others go by where they stand to it:
///
///     a child that                               horizontally       vertically
///     ends before the stretch control's end      stays              stays
///     ends at or behind it, and begins
///         behind it                              moves              moves
///         at or before its right                 grows
///         at or above its top                                       grows
///         between its top and its bottom                            moves
///     has the stretch control's left, too, and
///         ends at or below its bottom                               grows
///
/// The last row concerns also what stands wholly below the stretch control: it grows downwards from
/// where it stood, and the stretch control grows over it. Layouts of the suite rely on it: give
/// such a child another left side. Children of a fixed size move where others would grow, but for
/// those that begin at or before the stretch control's left, whose left side stays.
///
/// Sides that touch count as one before the other, so leave a gap of a pixel between children.
class UTILITY_UI_API CResizeLayout
{
public:
    /// `reference` is the stretch control's place before the change, `change` how much wider and
    /// higher the client area has become.
    CResizeLayout(const CRect& reference, CSize change) : m_Reference(reference), m_Change(change)
    {
    }

    CRect PlaceStretchControl() const;
    /// The new place of another child; `hasFixedSize` for pictures, spin buttons and the grip.
    CRect Place(const CRect& child, bool hasFixedSize) const;

private:
    bool GrowsDown(const CRect& child) const;

    CRect m_Reference;
    CSize m_Change;
};

/// Which of two stretch controls takes a change of height.
struct CStretchChoice
{
    bool m_HasSecond = false; // two stretch controls are wanted, and there is a second child
    bool m_PrefersSecond = false;
    int m_FirstHeight = 0;
    int m_FirstMinimum = 0;
    int m_SecondHeight = 0;
    int m_SecondMinimum = 0; // below 1 the second is never preferred
};

/// One that would fall below its minimum gives way to the other, the second to the first before the
/// first to the second: where both would, the second takes the change.
UTILITY_UI_API bool TakesSecondStretchControl(const CStretchChoice& choice, int heightChange);

} // namespace utility
