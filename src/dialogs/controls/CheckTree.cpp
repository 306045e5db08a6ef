#include "dialogs/controls/CheckTree.h"

#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Button.h"

namespace utility
{

namespace
{

// The pictures of marks, from 1 up, by their BST_...
constexpr UINT ToState(int mark)
{
    return static_cast<UINT>(mark + 1) << TVIS_STATEIMAGESHIFT;
}

} // namespace

IMPLEMENT_DYNAMIC(CCheckTree, CTree)

bool CCheckTree::Create(DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    return CTree::Create(style | TVS_CHECKBOXES, place, parent, id);
}

int CCheckTree::GetMark(HTREEITEM item) const
{
    const UINT picture = GetItemState(item, TVIS_STATEIMAGEMASK) >> TVIS_STATEIMAGESHIFT;
    return picture == 0 ? BST_UNCHECKED : static_cast<int>(picture) - 1;
}

bool CCheckTree::IsMarked(HTREEITEM item) const
{
    return GetMark(item) == BST_CHECKED;
}

void CCheckTree::SetMark(HTREEITEM item, bool marked)
{
    ShowMark(item, marked ? BST_CHECKED : BST_UNCHECKED);
    Spread(item);
}

void CCheckTree::MarkAll(bool marked)
{
    for (HTREEITEM item = GetRootItem(); item; item = GetNext(item))
        ShowMark(item, marked ? BST_CHECKED : BST_UNCHECKED);
}

std::vector<HTREEITEM> CCheckTree::GetMarkedEnds() const
{
    std::vector<HTREEITEM> ends;
    for (HTREEITEM item = GetRootItem(); item; item = GetNext(item))
    {
        if (IsMarked(item) && !ItemHasChildren(item))
            ends.push_back(item);
    }
    return ends;
}

/// From the end, so that those below come before those above them.
void CCheckTree::UpdateMarks()
{
    std::vector<HTREEITEM> items;
    for (HTREEITEM item = GetRootItem(); item; item = GetNext(item))
        items.push_back(item);
    for (auto item = items.rbegin(); item != items.rend(); ++item)
    {
        if (ItemHasChildren(*item))
            ShowMark(*item, GatherMark(*item));
    }
}

bool CCheckTree::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message == WM_NOTIFY)
    {
        const auto& note = *reinterpret_cast<const NMTREEVIEW*>(lParam);
        if (note.hdr.code == TVN_ITEMCHANGED)
            Spread(note.itemNew.hItem);
    }
    return CTree::OnChildNotify(message, wParam, lParam, result);
}

void CCheckTree::ShowMark(HTREEITEM item, int mark)
{
    if (GetMark(item) != mark)
        SetItemState(item, ToState(mark), TVIS_STATEIMAGEMASK);
}

/// What an item's direct children have, all together.
int CCheckTree::GatherMark(HTREEITEM item) const
{
    HTREEITEM child = GetChildItem(item);
    const int mark = GetMark(child);
    while (child && GetMark(child) == mark)
        child = GetNextSiblingItem(child);
    return child ? BST_INDETERMINATE : mark;
}

/// The mark of an item goes down to all below it; those above gather theirs anew.
void CCheckTree::Spread(HTREEITEM item)
{
    const int mark = GetMark(item);
    for (HTREEITEM below = GetNext(nullptr, item); below; below = GetNext(below, item))
        ShowMark(below, mark);
    while ((item = GetParentItem(item)))
        ShowMark(item, GatherMark(item));
}

} // namespace utility
