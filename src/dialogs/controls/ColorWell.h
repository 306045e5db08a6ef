#pragma once

#include "dialogs/controls/WellButton.h"

namespace utility
{

/// Code of WM_COMMAND to the parent: the user has chosen another colour.
constexpr UINT CWN_COLOURCHANGE = 0x8001;

/// A field that shows the chosen colour; a click, Space, Enter or Alt+Down opens the palette.
class UTILITY_UI_API SECColorWell : public SECWellButton
{
    DECLARE_DYNAMIC(SECColorWell)

protected:
    const CMessageMap* GetMessageMap() const override;
    void OnBnClicked() override;
    /// The colour and an arrow that says what a click does.
    void DrawFace(CDC& context, const CRect& place) override;

private:
    LRESULT OnSysKeyDown(WPARAM key, LPARAM lParam);
};

} // namespace utility
