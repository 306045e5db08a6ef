#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/object/Object.h"

#include <span>

namespace utility
{

class CWnd;

// What an item is, and how it is seen: a sum
constexpr UINT MF_STRING = 0x0000;
constexpr UINT MF_ENABLED = 0x0000;
constexpr UINT MF_UNCHECKED = 0x0000;
constexpr UINT MF_GRAYED = 0x0001;
constexpr UINT MF_DISABLED = 0x0002;
constexpr UINT MF_CHECKED = 0x0008;
constexpr UINT MF_POPUP = 0x0010; // the id is the handle of a menu
constexpr UINT MF_BYPOSITION = 0x0400;
constexpr UINT MF_SEPARATOR = 0x0800;

constexpr UINT TPM_LEFTALIGN = 0x0000;
constexpr UINT TPM_RIGHTALIGN = 0x0008; // the place is the right edge
constexpr UINT TPM_NONOTIFY = 0x0080;   // no command to the parent
constexpr UINT TPM_RETURNCMD = 0x0100;  // the answer is the id

/// One row of a menu.
struct CMenuItem
{
    UINT m_Flags = 0;
    UINT m_Id = 0;
    CString m_Text;            // "&" before the letter, a tab before the key
    HMENU m_SubMenu = nullptr; // with MF_POPUP
};

/// A menu that pops up.
///
/// The object owns its menu, and a menu owns those appended to it. User-interface thread.
class UTILITY_UI_API CMenu : public CObject
{
    DECLARE_DYNAMIC(CMenu)

public:
    CMenu() = default;
    ~CMenu() override;
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;

    /// False if there is a menu already.
    bool CreatePopupMenu();
    /// Ends the menu and those below it; false if there is none.
    bool DestroyMenu();
    /// Gives the menu up, such as to another one that it is appended to.
    HMENU Detach();
    HMENU GetSafeHmenu() const { return m_Menu; }

    /// Puts a row at the end. With MF_POPUP the id is a menu's handle, which must belong to no
    /// other menu nor lie above this one; false otherwise.
    bool AppendMenu(UINT flags, WPARAM id = 0, const char16_t* text = nullptr);
    int GetMenuItemCount() const;
    /// 0 for a row with a menu of its own, -1 if there is no such row.
    UINT GetMenuItemID(int row) const;
    /// Takes MF_GRAYED or MF_ENABLED, and MF_BYPOSITION if `item` is a row, not an id; the state
    /// before, or -1 if there is no such item. Items of menus below are found by their id.
    UINT EnableMenuItem(UINT item, UINT flags);
    /// The same with MF_CHECKED or MF_UNCHECKED.
    UINT CheckMenuItem(UINT item, UINT flags);

    /// Shows the menu at a place on the screen until the user chooses or gives up. The chosen id
    /// goes to the parent as a command, once the menu is gone; it is the answer with
    /// TPM_RETURNCMD, and 0 stands for none. Otherwise the answer tells whether the menu was shown.
    int TrackPopupMenu(UINT flags, int x, int y, CWnd* parent);

    /// The rows of a menu; empty if it is gone.
    static std::span<const CMenuItem> GetItems(HMENU menu);

private:
    UINT ChangeState(UINT item, UINT flags, UINT mask);

    HMENU m_Menu = nullptr;
};

} // namespace utility
