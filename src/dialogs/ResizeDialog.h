#pragma once

#include "dialogs/BaseDialog.h"
#include "dialogs/controls/PictureControl.h"
#include "platform/base/Rect.h"
#include "platform/base/String.h"

#include <vector>

namespace utility
{

/// A dialog that the user can resize: its children follow by the rule of `CResizeLayout`, and its
/// place is kept in the settings.
///
/// The first child of the template is the stretch control. With two, growth goes to the first, and
/// to the second while Shift is held down; one that is back at the height that it began with leaves
/// further shrinking to the other. The dialog never gets smaller than its template made it.
///
/// Minimum heights of the two are known once a key is set, and a second child without a height
/// never stretches.
class UTILITY_UI_API CResizeDialog : public CBaseDialog
{
    DECLARE_DYNAMIC(CResizeDialog)

public:
    CResizeDialog(UINT templateId, CWnd* parent, bool isResizable = true,
                  bool hasTwoStretchControls = false);

    /// Keeps the place below `key` and "Window"; without a key it is not kept. Before the dialog is
    /// shown.
    void SetSizeRegistryKey(const CString& key);
    bool IsInitialised() const { return !m_IsNotInitialised; }

    /// Stores the place first.
    bool DestroyWindow() override;
    void RestoreSize();
    void StoreSize();

    const CMessageMap* GetMessageMap() const override;

protected:
    bool OnInitDialog() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void SetWindowTheme() override;

    /// Places a child in a derived class's own way, which is said by true. Called for each child
    /// but the stretch control, with how much wider and higher the client area has become.
    virtual bool AdjustControl(HDWP& moves, CWnd& control, int dx, int dy);

    // For use in AdjustControl: shift the place, or the right and bottom side, or both
    void MoveControl(HDWP& moves, CWnd& control, int dx, int dy);
    void ResizeControl(HDWP& moves, CWnd& control, int dx, int dy);
    void MoveAndResizeControl(HDWP& moves, CWnd& control, int dx, int dy, int dWidth, int dHeight);

private:
    LRESULT OnSize(WPARAM type, LPARAM size);
    LRESULT OnGetMinMaxInfo(WPARAM wParam, LPARAM info);
    LRESULT OnShowWindow(WPARAM isShown, LPARAM reason);
    void LayOut(int dx, int dy);
    CWnd* ChooseStretchControl(const std::vector<CWnd*>& children, int dy) const;
    CWnd* GetSecondChild() const;
    void RestoreSecondChild();
    CRect PlaceOf(const CWnd& control) const;

    CRect m_Client; // the last size seen
    int m_MinimumWidth = 0;
    int m_MinimumHeight = 0;
    bool m_HasTwoStretchControls;
    bool m_IsRestoringSecondChild = false; // within RestoreSize alone
    bool m_IsResizable;
    bool m_IsNotInitialised = true;
    CString m_SizeRegistryKey;
    CPictureControl m_ResizingHandle;
    int m_FirstChildMinimum = 0;
    int m_SecondChildMinimum = 0;
};

} // namespace utility
