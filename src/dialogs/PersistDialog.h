#pragma once

#include "dialogs/ResizeDialog.h"

namespace utility
{

/// A dialog that outlives its closing: it is only hidden, and shown again with all that was in it.
///
/// The window ends with `Die`, with its owner or with the object.
class UTILITY_UI_API CPersistDialog : public CResizeDialog
{
    DECLARE_DYNAMIC(CPersistDialog)

public:
    CPersistDialog(UINT templateId, CWnd* parent, bool isResizable = true);
    ~CPersistDialog() override;

    /// Makes the window the first time, and shows it again later.
    int DoModal() override;
    /// Hides and disables the window, which lives on: false.
    bool DestroyWindow() override;
    /// Ends the window; its place is stored.
    void Die();
    /// Whether the present or last showing is the first of its window.
    bool IsFirstTime() const { return m_IsFirstTime; }

    const CMessageMap* GetMessageMap() const override;

protected:
    bool OnInitDialog() override;
    /// Before each showing but the first.
    virtual void OnDisplayWindow() {}
    /// After each showing.
    virtual void OnHideWindow() {}

private:
    LRESULT OnDestroy(WPARAM wParam, LPARAM lParam);
    int ShowAgain();

    bool m_IsFirstTime = true;
    HWND m_SavedWindow = nullptr;
};

} // namespace utility
