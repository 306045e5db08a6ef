#pragma once

#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/backend/qt/TreeItem.h"
#include "platform/ui/controls/TreeMessages.h"

#include <cstdint>
#include <unordered_map>

namespace utility
{

class CImageList;

/// A tree of items.
class CTreePeer final : public CQtWindowPeer
{
public:
    CTreePeer(const CWindowRequest& request, QWidget* parent);
    ~CTreePeer() override;

    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // What the user does
    /// Whether the parent lets the selection go to an item, or to none.
    bool MaySelect(CTreeItem* item, UINT action);
    bool MayEditLabel(CTreeItem& item);
    /// By keys, if the parent lets it.
    void GoTo(CTreeItem& item);
    /// Opens or closes an item, if the parent lets it.
    void Open(CTreeItem& item, bool open);
    /// A click or Space on an item's mark.
    void OnMark(CTreeItem& item);
    LRESULT TellPlain(int code);
    CTreeItem* Find(HTREEITEM item) const;

private:
    // Items: TreeItems.cpp
    LRESULT OnInsertItem(WPARAM, LPARAM insert);
    LRESULT OnDeleteItem(WPARAM, LPARAM item);
    LRESULT OnGetItem(WPARAM, LPARAM item);
    LRESULT OnSetItem(WPARAM, LPARAM item);
    LRESULT OnGetCount(WPARAM, LPARAM);
    LRESULT OnGetNextItem(WPARAM relation, LPARAM item);
    LRESULT OnSetImageList(WPARAM, LPARAM images);

    // View: TreePeer.cpp
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnDestroy(WPARAM, LPARAM);
    LRESULT OnExpand(WPARAM action, LPARAM item);
    LRESULT OnSelectItem(WPARAM relation, LPARAM item);
    LRESULT OnEnsureVisible(WPARAM, LPARAM item);
    LRESULT OnGetItemRect(WPARAM textOnly, LPARAM request);
    LRESULT OnHitTest(WPARAM, LPARAM test);
    LRESULT OnEditLabel(WPARAM, LPARAM item);
    LRESULT OnGetDialogCode(WPARAM, LPARAM);

    QTreeWidget& Tree() const { return static_cast<QTreeWidget&>(Widget()); }
    CTreeItem* FindSelected() const;
    int FindPlace(const QTreeWidgetItem& parent, const CString& text, HTREEITEM after) const;
    void Apply(CTreeItem& item, const TVITEM& change);
    void ApplyState(CTreeItem& item, UINT state, UINT mask);
    UINT GetItemState(const CTreeItem& item) const;
    void ShowMark(CTreeItem& item);
    void ShowImages(CTreeItem& item);
    void Delete(CTreeItem& item);

    LRESULT TellItem(int code, UINT action, CTreeItem* before, CTreeItem* after);
    void OnSelected(CTreeItem* before, CTreeItem* after);
    void OnLabel(CTreeItem& item);
    TVITEM Describe(const CTreeItem* item) const;

    std::unordered_map<HTREEITEM, CTreeItem*> m_Items;
    std::uintptr_t m_LastNumber = 0;
    CImageList* m_Images = nullptr; // the caller's
    UINT m_Action = TVC_UNKNOWN;    // who selects
    bool m_IsOwnChange = false;
};

} // namespace utility
