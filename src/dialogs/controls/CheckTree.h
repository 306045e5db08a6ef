#pragma once

#include "dialogs/controls/Tree.h"

#include <vector>

namespace utility
{

/// A tree of marks: an item's mark goes to all below it, and an item shows what those below have.
///
///     below an item     its mark
///     all marked        marked
///     some marked       half marked; a click marks them all
///     none marked       not marked
///
/// The parent is told of the user's changes by TVN_ITEMCHANGED, once, when all marks are right.
class UTILITY_UI_API CCheckTree : public CTree
{
    DECLARE_DYNAMIC(CCheckTree)

public:
    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id);

    /// BST_CHECKED, BST_INDETERMINATE or BST_UNCHECKED.
    int GetMark(HTREEITEM item) const;
    bool IsMarked(HTREEITEM item) const;
    /// Also below and above the item; sends no note.
    void SetMark(HTREEITEM item, bool marked = true);
    void MarkAll(bool marked = true);
    /// The marked items that have none below them, as they are seen.
    std::vector<HTREEITEM> GetMarkedEnds() const;
    /// Makes the marks of all items with others below right, such as after items were added.
    void UpdateMarks();

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    void ShowMark(HTREEITEM item, int mark);
    int GatherMark(HTREEITEM item) const;
    void Spread(HTREEITEM item);
};

} // namespace utility
