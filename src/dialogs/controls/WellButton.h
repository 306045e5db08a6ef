#pragma once

#include "platform/base/Colour.h"
#include "platform/base/Export.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

class CDC;

/// A button that shows a colour instead of a text; its text is what screen readers say.
///
/// A click, Space or Enter tells the parent by WM_COMMAND with BN_CLICKED. User-interface thread.
class UTILITY_UI_API SECWellButton : public CWnd
{
    DECLARE_DYNAMIC(SECWellButton)

public:
    bool Create(const char16_t* name, DWORD style, const CRect& place, CWnd* parent, UINT id);

    COLORREF GetColor() const { return m_Colour; }
    void SetColor(COLORREF colour);

protected:
    const CMessageMap* GetMessageMap() const override;

    /// What a click does.
    virtual void OnBnClicked();
    /// Draws what stands within the button's edge.
    virtual void DrawFace(CDC& context, const CRect& place);
    void NotifyParent(UINT code);

private:
    LRESULT OnPaint(WPARAM, LPARAM);
    LRESULT OnLButtonDown(WPARAM keys, LPARAM point);
    LRESULT OnLButtonUp(WPARAM keys, LPARAM point);
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM window);
    LRESULT OnKeyDown(WPARAM key, LPARAM lParam);
    LRESULT OnKeyUp(WPARAM key, LPARAM lParam);
    LRESULT OnFocusChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetDlgCode(WPARAM, LPARAM);
    void SetPressed(bool isPressed);

    COLORREF m_Colour = 0;
    bool m_IsPressed = false;
};

} // namespace utility
