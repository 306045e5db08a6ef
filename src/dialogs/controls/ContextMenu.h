#pragma once

#include "platform/base/Point.h"
#include "platform/ui/controls/Menu.h"

namespace utility
{

/// A menu at the place that it is about.
///
/// While a macro is recorded, what the user chooses is recorded as a command, and the keys and
/// clicks within the menu are not. While one is replayed, the menu is not shown: the command comes
/// by itself. User-interface thread.
class UTILITY_UI_API CContextMenu : public CMenu
{
    DECLARE_DYNAMIC(CContextMenu)

public:
    CContextMenu();

    /// `text` with "&" before the letter, and a tab before the key.
    void AddCommand(UINT id, const CString& text, bool isEnabled = true, bool isChecked = false);
    /// The same with the text of an id; false if there is none.
    bool AddCommand(UINT id, UINT textId, bool isEnabled = true, bool isChecked = false);
    /// A line before the next command; none at the beginning, and never two.
    void AddSeparator() { m_HasSeparator = GetMenuItemCount() > 0; }
    /// The menu is then this one's, and `menu` has none.
    bool AddMenu(const CString& text, CMenu& menu);

    /// Shows the menu on the screen, by default where the pointer is, until the user chooses or
    /// gives up. The command goes to the parent, once the menu is gone; its id, or 0 for none.
    UINT Show(CWnd* parent);
    UINT Show(CWnd* parent, CPoint place);

private:
    void BeginGroup();

    bool m_HasSeparator = false; // before the next command
};

} // namespace utility
