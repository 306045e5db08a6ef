#pragma once

#include "dialogs/controls/ColourPalette.h"
#include "platform/base/String.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

class CDC;

/// A palette that opens below a control and closes with a choice.
///
/// Arrow keys, Home and End go from colour to colour and, behind the last row, to "Other...", which
/// opens the full colour choice. Enter, Space or a click takes; Escape, Tab or a click elsewhere
/// gives up. The title is the colour under the keys ("#FF8000"), for those who cannot see it.
/// User-interface thread.
class UTILITY_UI_API SECPopupColorWell : public CWnd
{
    DECLARE_DYNAMIC(SECPopupColorWell)

public:
    SECPopupColorWell() = default;
    explicit SECPopupColorWell(CColourPalette palette) : m_Palette(std::move(palette)) {}

    /// Handles messages until the user has chosen; false, and `colour` keeps its preset, if nothing
    /// was chosen or `control` ended meanwhile.
    [[nodiscard]] bool Choose(CWnd& control, COLORREF& colour);

    const CColourPalette& GetPalette() const { return m_Palette; }
    /// Where "Other..." stands, below the palette.
    CRect GetOtherPlace() const;

protected:
    const CMessageMap* GetMessageMap() const override;

private:
    LRESULT OnPaint(WPARAM, LPARAM);
    LRESULT OnMouseMove(WPARAM keys, LPARAM point);
    LRESULT OnLButtonUp(WPARAM keys, LPARAM point);
    LRESULT OnKeyDown(WPARAM key, LPARAM lParam);
    LRESULT OnActivate(WPARAM state, LPARAM window);
    LRESULT OnGetDlgCode(WPARAM, LPARAM);

    bool Open(CWnd& control);
    CSize GetSize() const;
    int HitTest(CPoint point) const;
    int Step(UINT key) const;
    void SetCurrent(int item);
    void Take(int item);
    void ChooseOther();
    void DrawCell(CDC& context, int cell) const;
    void DrawOther(CDC& context) const;

    CColourPalette m_Palette;
    int m_Current = -1; // a cell, or their number for "Other..."
    COLORREF m_Colour = 0;
    bool m_IsChoosingOther = false; // the full choice is open over the palette
};

} // namespace utility
