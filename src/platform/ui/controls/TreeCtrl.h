#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/controls/TreeMessages.h"

namespace utility
{

class CImageList;

/// A tree of items.
///
/// Messages, records and notes stand in TreeMessages.h. A handle whose item is gone is answered
/// with null, 0 or false. Notes come for the program's selecting and deleting, too, as for the
/// user's; of expanding only for the user's.
class UTILITY_UI_API CTreeCtrl : public CWnd
{
    DECLARE_DYNAMIC(CTreeCtrl)

public:
    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id);

    // Items
    /// Null if there is no such parent. `after` is an item of the same parent or TVI_FIRST,
    /// TVI_LAST, TVI_SORT (by text, case-blind).
    HTREEITEM InsertItem(const CString& text, HTREEITEM parent = TVI_ROOT,
                         HTREEITEM after = TVI_LAST);
    HTREEITEM InsertItem(const CString& text, int image, int selectedImage,
                         HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST);
    HTREEITEM InsertItem(TVINSERTSTRUCT* insert);
    /// With all that hangs below it.
    bool DeleteItem(HTREEITEM item);
    bool DeleteAllItems() { return DeleteItem(TVI_ROOT); }
    UINT GetCount() const;

    // Relations; null if there is none
    HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
    HTREEITEM GetChildItem(HTREEITEM item) const;
    HTREEITEM GetNextSiblingItem(HTREEITEM item) const { return GetNextItem(item, TVGN_NEXT); }
    HTREEITEM GetPrevSiblingItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PREVIOUS); }
    HTREEITEM GetParentItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PARENT); }
    HTREEITEM GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }
    HTREEITEM GetNextItem(HTREEITEM item, UINT relation) const;
    bool ItemHasChildren(HTREEITEM item) const { return GetChildItem(item) != nullptr; }

    // Selection and view
    /// Null takes the selection away. Opens what lies above the item.
    bool SelectItem(HTREEITEM item);
    /// Takes TVE_...; false if nothing changed.
    bool Expand(HTREEITEM item, UINT action);
    bool EnsureVisible(HTREEITEM item);
    /// In pixels of the tree; false if the item is not in view.
    bool GetItemRect(HTREEITEM item, CRect& place, bool textOnly) const;
    HTREEITEM HitTest(CPoint point, UINT* flags = nullptr) const;
    /// Lets the user write a label, with TVS_EDITLABELS.
    bool EditLabel(HTREEITEM item);

    // Members of an item
    CString GetItemText(HTREEITEM item) const;
    bool SetItemText(HTREEITEM item, const CString& text);
    LPARAM GetItemData(HTREEITEM item) const;
    bool SetItemData(HTREEITEM item, LPARAM data);
    /// The states among `mask`, such as TVIS_EXPANDED.
    UINT GetItemState(HTREEITEM item, UINT mask) const;
    bool SetItemState(HTREEITEM item, UINT state, UINT mask);
    bool SetItemImage(HTREEITEM item, int image, int selectedImage);
    bool GetItem(TVITEM* item) const;
    bool SetItem(const TVITEM* item);

    // Marks, with TVS_CHECKBOXES; sends no note
    bool GetCheck(HTREEITEM item) const;
    bool SetCheck(HTREEITEM item, bool checked = true);

    /// The pictures that items name by number; they stay with the caller, who keeps them alive.
    /// Those set before.
    CImageList* SetImageList(CImageList* images);

private:
    CImageList* m_Images = nullptr;
};

} // namespace utility
