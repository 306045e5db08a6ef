#pragma once

#include "platform/base/Colour.h"
#include "platform/base/Export.h"

namespace utility
{

class CWnd;

/// The desktop's full choice of colours.
class UTILITY_UI_API CColorDialog
{
public:
    explicit CColorDialog(COLORREF initial = 0, CWnd* parent = nullptr)
        : m_Colour(initial),
          m_Parent(parent)
    {
    }

    /// IDOK, or IDCANCEL, which leaves the colour as it was.
    int DoModal();
    COLORREF GetColor() const { return m_Colour; }

private:
    COLORREF m_Colour;
    CWnd* m_Parent;
};

} // namespace utility
