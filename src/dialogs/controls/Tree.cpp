#include "dialogs/controls/Tree.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CTree, CTreeCtrl)

HTREEITEM CTree::GetNext(HTREEITEM item, HTREEITEM top) const
{
    if (!item)
        return top ? GetChildItem(top) : GetRootItem();
    if (const HTREEITEM child = GetChildItem(item))
        return child;
    for (; item && item != top; item = GetParentItem(item))
    {
        if (const HTREEITEM next = GetNextSiblingItem(item))
            return next;
    }
    return nullptr;
}

int CTree::GetLevel(HTREEITEM item) const
{
    int level = 0;
    while ((item = GetParentItem(item)))
        ++level;
    return level;
}

HTREEITEM CTree::FindItem(const std::function<bool(HTREEITEM)>& isFound) const
{
    HTREEITEM item = GetRootItem();
    while (item && !isFound(item))
        item = GetNext(item);
    return item;
}

HTREEITEM CTree::FindItemData(LPARAM data) const
{
    return FindItem([&](HTREEITEM item) { return GetItemData(item) == data; });
}

HTREEITEM CTree::FindChild(HTREEITEM parent, const CString& text) const
{
    HTREEITEM item = GetChildItem(parent);
    while (item && GetItemText(item).CompareNoCase(text) != 0)
        item = GetNextSiblingItem(item);
    return item;
}

CString CTree::GetPath(HTREEITEM item, char16_t separator) const
{
    CString path = GetItemText(item);
    while ((item = GetParentItem(item)))
        path = GetItemText(item) + separator + path;
    return path;
}

HTREEITEM CTree::FindPath(const CString& path, char16_t separator) const
{
    HTREEITEM item = nullptr;
    int first = 0;
    while (true)
    {
        const int end = path.Find(separator, first);
        item = FindChild(item, end < 0 ? path.Mid(first) : path.Mid(first, end - first));
        if (!item || end < 0)
            return item;
        first = end + 1;
    }
}

void CTree::ExpandAll(bool open)
{
    for (HTREEITEM item = GetRootItem(); item; item = GetNext(item))
        Expand(item, open ? TVE_EXPAND : TVE_COLLAPSE);
}

void CTree::DeleteChildren(HTREEITEM item)
{
    while (const HTREEITEM child = GetChildItem(item))
        DeleteItem(child);
}

} // namespace utility
