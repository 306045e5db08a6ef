#pragma once

#include "platform/ui/controls/ToolTipCtrl.h"

#include <map>

namespace utility
{

/// Tips of many lines for the controls of a dialog.
///
/// Lines end where the text says so; with a greatest width also where they would be wider.
class UTILITY_UI_API CToolTipEx : public CToolTipCtrl
{
    DECLARE_DYNAMIC(CToolTipEx)

public:
    static constexpr int NO_GREATEST_WIDTH = 8192;

    bool Create(CWnd* owner, int maxWidth = NO_GREATEST_WIDTH);

    /// Gives a window its tip, or with an empty text takes it away.
    void SetTip(CWnd* window, const CString& text);
    /// The same for a dialog's control and the text of an id; false if either is not there.
    bool SetTip(CWnd& dialog, int controlId, UINT textId);
    /// Puts a line below those that the window's tip has.
    void AddLine(CWnd* window, const CString& line);
    /// Empty if the window has no tip.
    CString GetTip(const CWnd* window) const;

private:
    std::map<HWND, CString> m_Texts;
};

} // namespace utility
