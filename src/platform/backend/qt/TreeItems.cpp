#include "platform/backend/qt/Pictures.h"
#include "platform/backend/qt/TreePeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ImageList.h"

#include <QIcon>

#include <utility>
#include <vector>

namespace utility
{

namespace
{

// The pictures of marks: 1 without, 2 with, 3 for an item whose children differ.
constexpr int NO_MARK = 1;
constexpr int FULL_MARK = 2;

QIcon ToIcon(const CImageList* images, int image, int selectedImage)
{
    QIcon icon;
    const auto add = [&](int number, QIcon::Mode mode)
    {
        const CPicture* picture = images ? images->GetPicture(number) : nullptr;
        if (picture)
            icon.addPixmap(ToPixmap(*picture), mode);
    };
    add(image, QIcon::Normal);
    add(selectedImage, QIcon::Selected);
    return icon;
}

CTreeItem* ToItem(QTreeWidgetItem* item)
{
    return static_cast<CTreeItem*>(item);
}

QTreeWidgetItem* FindSibling(const CTreeItem& item, QTreeWidget& tree, int step)
{
    QTreeWidgetItem* parent = item.parent() ? item.parent() : tree.invisibleRootItem();
    return parent->child(parent->indexOfChild(const_cast<CTreeItem*>(&item)) + step);
}

} // namespace

CTreeItem* CTreePeer::Find(HTREEITEM item) const
{
    const auto found = m_Items.find(item);
    return found == m_Items.end() ? nullptr : found->second;
}

LRESULT CTreePeer::OnInsertItem(WPARAM, LPARAM insert)
{
    const auto& request = *reinterpret_cast<const TVINSERTSTRUCT*>(insert);
    const bool isAtRoot = !request.hParent || request.hParent == TVI_ROOT;
    CTreeItem* above = isAtRoot ? nullptr : Find(request.hParent);
    if (!isAtRoot && !above)
        return 0;

    QTreeWidgetItem& parent = above ? *above : *Tree().invisibleRootItem();
    auto* item = new CTreeItem;
    item->m_Handle = reinterpret_cast<HTREEITEM>(++m_LastNumber);
    m_Items.emplace(item->m_Handle, item);
    const bool wasOwnChange = std::exchange(m_IsOwnChange, true);
    // Marks have clicks of their own.
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    if (GetStyle() & TVS_EDITLABELS)
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    if (GetStyle() & TVS_CHECKBOXES)
        item->m_Mark = NO_MARK;
    const CString text = request.item.mask & TVIF_TEXT ? request.item.pszText : u"";
    parent.insertChild(FindPlace(parent, text, request.hInsertAfter), item);
    ShowMark(*item);
    Apply(*item, request.item);
    m_IsOwnChange = wasOwnChange;
    return reinterpret_cast<LRESULT>(item->m_Handle);
}

int CTreePeer::FindPlace(const QTreeWidgetItem& parent, const CString& text, HTREEITEM after) const
{
    const int count = parent.childCount();
    if (after == TVI_FIRST)
        return 0;
    if (after == TVI_SORT)
    {
        int place = 0;
        while (place < count && ToItem(parent.child(place))->m_Text.CompareNoCase(text) <= 0)
            ++place;
        return place;
    }
    CTreeItem* before = Find(after);
    const int found = before ? parent.indexOfChild(before) : -1;
    return found < 0 ? count : found + 1;
}

LRESULT CTreePeer::OnDeleteItem(WPARAM, LPARAM item)
{
    const auto handle = reinterpret_cast<HTREEITEM>(item);
    if (handle == TVI_ROOT || !handle)
    {
        m_IsOwnChange = true;
        Tree().setCurrentItem(nullptr);
        m_IsOwnChange = false;
        while (IsOpen() && Tree().topLevelItemCount() > 0)
            Delete(*ToItem(Tree().topLevelItem(Tree().topLevelItemCount() - 1)));
        return TRUE;
    }
    CTreeItem* found = Find(handle);
    if (!found)
        return FALSE;
    Delete(*found);
    return TRUE;
}

/// Tells of each item that goes, those below first.
void CTreePeer::Delete(CTreeItem& item)
{
    std::vector<HTREEITEM> going{item.m_Handle};
    for (std::size_t i = 0; i < going.size(); ++i)
    {
        const CTreeItem* next = Find(going[i]);
        for (int child = 0; child < next->childCount(); ++child)
            going.push_back(ToItem(next->child(child))->m_Handle);
    }
    const HTREEITEM handle = item.m_Handle;
    for (auto next = going.rbegin(); next != going.rend() && IsOpen(); ++next)
    {
        if (CTreeItem* found = Find(*next))
            TellItem(TVN_DELETEITEM, 0, found, nullptr);
        m_Items.erase(*next);
    }
    if (!IsOpen())
        return;
    m_Items.erase(handle);
    delete &item; // with those below
}

LRESULT CTreePeer::OnGetItem(WPARAM, LPARAM item)
{
    auto& request = *reinterpret_cast<TVITEM*>(item);
    const CTreeItem* found = Find(request.hItem);
    if (!found)
        return FALSE;
    const TVITEM all = Describe(found);
    if (request.mask & TVIF_TEXT)
        request.pszText = all.pszText;
    if (request.mask & TVIF_IMAGE)
        request.iImage = all.iImage;
    if (request.mask & TVIF_SELECTEDIMAGE)
        request.iSelectedImage = all.iSelectedImage;
    if (request.mask & TVIF_PARAM)
        request.lParam = all.lParam;
    if (request.mask & TVIF_STATE)
        request.state = all.state & request.stateMask;
    if (request.mask & TVIF_CHILDREN)
        request.cChildren = all.cChildren;
    return TRUE;
}

TVITEM CTreePeer::Describe(const CTreeItem* item) const
{
    TVITEM result;
    if (!item)
        return result;
    result.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM | TVIF_STATE;
    result.hItem = item->m_Handle;
    result.pszText = item->m_Text;
    result.iImage = item->m_Image;
    result.iSelectedImage = item->m_SelectedImage;
    result.lParam = item->m_Data;
    result.state = GetItemState(*item);
    result.stateMask = ~UINT{0};
    const bool mayOpen =
        item->childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator || item->childCount() > 0;
    result.cChildren = mayOpen;
    return result;
}

LRESULT CTreePeer::OnSetItem(WPARAM, LPARAM item)
{
    const auto& change = *reinterpret_cast<const TVITEM*>(item);
    CTreeItem* found = Find(change.hItem);
    if (!found)
        return FALSE;
    const bool wasOwnChange = std::exchange(m_IsOwnChange, true);
    Apply(*found, change);
    m_IsOwnChange = wasOwnChange;
    return TRUE;
}

void CTreePeer::Apply(CTreeItem& item, const TVITEM& change)
{
    if (change.mask & TVIF_TEXT)
    {
        item.m_Text = change.pszText;
        item.setText(0, ToQString(item.m_Text));
    }
    if (change.mask & TVIF_IMAGE)
        item.m_Image = change.iImage;
    if (change.mask & TVIF_SELECTEDIMAGE)
        item.m_SelectedImage = change.iSelectedImage;
    if (change.mask & (TVIF_IMAGE | TVIF_SELECTEDIMAGE))
        ShowImages(item);
    if (change.mask & TVIF_PARAM)
        item.m_Data = change.lParam;
    if (change.mask & TVIF_CHILDREN)
        item.setChildIndicatorPolicy(change.cChildren
                                         ? QTreeWidgetItem::ShowIndicator
                                         : QTreeWidgetItem::DontShowIndicatorWhenChildless);
    if (change.mask & TVIF_STATE)
        ApplyState(item, change.state, change.stateMask);
}

void CTreePeer::ApplyState(CTreeItem& item, UINT state, UINT mask)
{
    if (mask & TVIS_BOLD)
    {
        QFont font = item.font(0);
        font.setBold((state & TVIS_BOLD) != 0);
        item.setFont(0, font);
    }
    if (mask & TVIS_EXPANDED)
        item.setExpanded((state & TVIS_EXPANDED) != 0);
    if (mask & TVIS_STATEIMAGEMASK)
    {
        item.m_Mark = static_cast<int>((state & TVIS_STATEIMAGEMASK) >> TVIS_STATEIMAGESHIFT);
        ShowMark(item);
    }
}

UINT CTreePeer::GetItemState(const CTreeItem& item) const
{
    UINT state = static_cast<UINT>(item.m_Mark) << TVIS_STATEIMAGESHIFT;
    if (item.isSelected())
        state |= TVIS_SELECTED;
    if (item.isExpanded())
        state |= TVIS_EXPANDED;
    if (item.font(0).bold())
        state |= TVIS_BOLD;
    return state;
}

void CTreePeer::ShowMark(CTreeItem& item)
{
    if (!(GetStyle() & TVS_CHECKBOXES))
        return;
    if (item.m_Mark == 0)
        item.setData(0, Qt::CheckStateRole, QVariant());
    else
        item.setCheckState(0, item.m_Mark == NO_MARK     ? Qt::Unchecked
                              : item.m_Mark == FULL_MARK ? Qt::Checked
                                                         : Qt::PartiallyChecked);
}

void CTreePeer::ShowImages(CTreeItem& item)
{
    item.setIcon(0, ToIcon(m_Images, item.m_Image, item.m_SelectedImage));
}

LRESULT CTreePeer::OnGetCount(WPARAM, LPARAM)
{
    return static_cast<LRESULT>(m_Items.size());
}

LRESULT CTreePeer::OnGetNextItem(WPARAM relation, LPARAM item)
{
    const auto answer = [](QTreeWidgetItem* found)
    {
        return found ? reinterpret_cast<LRESULT>(ToItem(found)->m_Handle) : 0;
    };
    if (relation == TVGN_ROOT)
        return answer(Tree().topLevelItem(0));
    if (relation == TVGN_CARET)
        return answer(FindSelected());
    const CTreeItem* found = Find(reinterpret_cast<HTREEITEM>(item));
    if (!found)
        return 0;
    switch (relation)
    {
    case TVGN_NEXT:
        return answer(FindSibling(*found, Tree(), 1));
    case TVGN_PREVIOUS:
        return answer(FindSibling(*found, Tree(), -1));
    case TVGN_PARENT:
        return answer(found->parent());
    case TVGN_CHILD:
        return answer(found->child(0));
    default:
        return 0;
    }
}

LRESULT CTreePeer::OnSetImageList(WPARAM, LPARAM images)
{
    const auto before = reinterpret_cast<LRESULT>(m_Images);
    m_Images = reinterpret_cast<CImageList*>(images);
    if (m_Images)
        Tree().setIconSize(QSize(m_Images->GetSize().cx, m_Images->GetSize().cy));
    const bool wasOwnChange = std::exchange(m_IsOwnChange, true);
    for (const auto& [handle, item] : m_Items)
        ShowImages(*item);
    m_IsOwnChange = wasOwnChange;
    return before;
}

} // namespace utility
