#include "platform/ui/controls/Menu.h"

#include "platform/ui/HandleTable.h"

#include <utility>
#include <vector>

namespace utility
{

namespace
{

struct CMenuRecord
{
    std::vector<CMenuItem> m_Items;
    HMENU m_Owner = nullptr; // the menu that this one is appended to
};

using CMenuTable = THandleTable<HMENU, CMenuRecord>;

// Never ended: menus that live as long as the program come back to it at the very end.
CMenuTable& GetMenuTable()
{
    static CMenuTable* const table = new CMenuTable;
    return *table;
}

/// Removes a menu and all below it.
void RemoveMenus(HMENU menu)
{
    std::vector<HMENU> left{menu};
    while (!left.empty())
    {
        const HMENU next = left.back();
        left.pop_back();
        for (const CMenuItem& item : CMenu::GetItems(next))
        {
            if (item.m_SubMenu)
                left.push_back(item.m_SubMenu);
        }
        GetMenuTable().Remove(next);
    }
}

bool MayAppend(HMENU menu, HMENU subMenu)
{
    const CMenuRecord* below = GetMenuTable().Find(subMenu);
    if (!below || below->m_Owner)
        return false;
    while (menu && menu != subMenu)
        menu = GetMenuTable().Find(menu)->m_Owner;
    return !menu;
}

/// By row in this menu, or by id in it and in those below.
CMenuItem* FindItem(HMENU menu, UINT item, UINT flags)
{
    std::vector<HMENU> left{menu};
    while (!left.empty())
    {
        CMenuRecord* record = GetMenuTable().Find(left.back());
        left.pop_back();
        if (!record)
            continue;
        if (flags & MF_BYPOSITION)
            return item < record->m_Items.size() ? &record->m_Items[item] : nullptr;
        for (CMenuItem& row : record->m_Items)
        {
            if (row.m_SubMenu)
                left.push_back(row.m_SubMenu);
            else if (row.m_Id == item && !(row.m_Flags & MF_SEPARATOR))
                return &row;
        }
    }
    return nullptr;
}

} // namespace

IMPLEMENT_DYNAMIC(CMenu, CObject)

CMenu::~CMenu()
{
    DestroyMenu();
}

bool CMenu::CreatePopupMenu()
{
    if (m_Menu)
        return false;
    m_Menu = GetMenuTable().Add({});
    return true;
}

bool CMenu::DestroyMenu()
{
    if (!m_Menu)
        return false;
    RemoveMenus(std::exchange(m_Menu, nullptr));
    return true;
}

HMENU CMenu::Detach()
{
    return std::exchange(m_Menu, nullptr);
}

bool CMenu::AppendMenu(UINT flags, WPARAM id, const char16_t* text)
{
    CMenuRecord* record = GetMenuTable().Find(m_Menu);
    if (!record)
        return false;
    CMenuItem item{flags, static_cast<UINT>(id), text, nullptr};
    if (flags & MF_POPUP)
    {
        item.m_Id = 0;
        item.m_SubMenu = reinterpret_cast<HMENU>(id);
        if (!MayAppend(m_Menu, item.m_SubMenu))
            return false;
        GetMenuTable().Find(item.m_SubMenu)->m_Owner = m_Menu;
    }
    record->m_Items.push_back(std::move(item));
    return true;
}

int CMenu::GetMenuItemCount() const
{
    return static_cast<int>(GetItems(m_Menu).size());
}

UINT CMenu::GetMenuItemID(int row) const
{
    const std::span<const CMenuItem> items = GetItems(m_Menu);
    const auto index = static_cast<std::size_t>(row);
    return row >= 0 && index < items.size() ? items[index].m_Id : static_cast<UINT>(-1);
}

UINT CMenu::EnableMenuItem(UINT item, UINT flags)
{
    return ChangeState(item, flags, MF_GRAYED | MF_DISABLED);
}

UINT CMenu::CheckMenuItem(UINT item, UINT flags)
{
    return ChangeState(item, flags, MF_CHECKED);
}

UINT CMenu::ChangeState(UINT item, UINT flags, UINT mask)
{
    CMenuItem* found = FindItem(m_Menu, item, flags);
    if (!found)
        return static_cast<UINT>(-1);
    const UINT before = found->m_Flags & mask;
    found->m_Flags = (found->m_Flags & ~mask) | (flags & mask);
    return before;
}

std::span<const CMenuItem> CMenu::GetItems(HMENU menu)
{
    const CMenuRecord* record = GetMenuTable().Find(menu);
    return record ? std::span<const CMenuItem>(record->m_Items) : std::span<const CMenuItem>();
}

} // namespace utility
