#pragma once

#include "platform/ui/controls/TreeCtrl.h"

#include <functional>

namespace utility
{

/// A tree that can be walked, searched and opened as a whole.
///
/// Items are walked as they are seen when all are open: each before those below it.
class UTILITY_UI_API CTree : public CTreeCtrl
{
    DECLARE_DYNAMIC(CTree)

public:
    /// The item behind `item`, the first for null; null at the end. With `top` only those below it.
    HTREEITEM GetNext(HTREEITEM item, HTREEITEM top = nullptr) const;
    /// 0 for the items at the root.
    int GetLevel(HTREEITEM item) const;

    // The first item of that kind, or null
    HTREEITEM FindItem(const std::function<bool(HTREEITEM)>& isFound) const;
    HTREEITEM FindItemData(LPARAM data) const;
    /// Among the children of `parent` alone, case-blind; null is the root.
    HTREEITEM FindChild(HTREEITEM parent, const CString& text) const;

    /// The texts from the root to an item, as "Parts\Resistors\R1".
    CString GetPath(HTREEITEM item, char16_t separator = u'\\') const;
    /// The item of such a path; null if a part of it is not there.
    HTREEITEM FindPath(const CString& path, char16_t separator = u'\\') const;

    void ExpandAll(bool open = true);
    void DeleteChildren(HTREEITEM item);
};

} // namespace utility
