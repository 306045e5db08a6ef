#pragma once

#include "platform/base/Colour.h"
#include "platform/ui/BCGPDialog.h"
#include "platform/ui/drawing/Brush.h"

namespace utility
{

/// Base of all dialogs of the suite: its colours are the visual manager's, where that styles
/// dialogs, else the desktop's, and follow them while the dialog is open. Macros ask and play back
/// its controls as MacroItem.h tells.
class UTILITY_UI_API CBaseDialog : public CBCGPDialog
{
    DECLARE_DYNAMIC(CBaseDialog)

public:
    CBaseDialog(UINT templateId, CWnd* parent);
    CBaseDialog(const char16_t* templateName, CWnd* parent);

    COLORREF GetBackgroundColour() const { return m_BackgroundColour; }
    COLORREF GetTextColour() const { return m_TextColour; }

    /// Pixels at 96 dots per inch as real ones.
    static int DPIScale(int value);
    static bool IsDefaultDPI();

    const CMessageMap* GetMessageMap() const override;

protected:
    /// Takes the colours that are right now.
    virtual void SetWindowTheme();
    /// Leaves a control with its own look, beside those that have been left already.
    virtual void AddNonSubclassedItem(UINT id);

    LRESULT OnChangeVisualManager(WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT OnCreate(WPARAM wParam, LPARAM lParam);
    LRESULT OnPaint(WPARAM, LPARAM);
    LRESULT OnMacroItemGetValue(WPARAM id, LPARAM value);
    LRESULT OnMacroItemReplay(WPARAM id, LPARAM value);

    COLORREF m_BackgroundColour = 0;
    COLORREF m_TextColour = 0;
    CBrush m_BackgroundBrush;
    std::vector<UINT> m_NonSubclassed; // ids
};

} // namespace utility
