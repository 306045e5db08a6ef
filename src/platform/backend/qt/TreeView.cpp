#include "platform/backend/qt/TreeView.h"

#include "platform/backend/qt/TreePeer.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>

namespace utility
{

namespace
{

CTreeItem* ToItem(QTreeWidgetItem* item)
{
    return static_cast<CTreeItem*>(item);
}

} // namespace

CTreeItem* CTreeView::FindAt(const QPoint& place) const
{
    return ToItem(itemAt(place));
}

QRect CTreeView::MarkOf(const QModelIndex& index) const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this);
}

bool CTreeView::IsOnMark(const QPoint& place) const
{
    const CTreeItem* item = FindAt(place);
    return item && item->data(0, Qt::CheckStateRole).isValid() &&
           MarkOf(indexFromItem(item)).contains(place);
}

bool CTreeView::IsOnItem(const CTreeItem& item, const QPoint& place) const
{
    const QModelIndex index = indexFromItem(&item);
    const QRect row = visualRect(index);
    const int width = itemDelegate()->sizeHint({}, index).width();
    const QRect label(row.topLeft(), QSize(std::min(width, row.width()), row.height()));
    return QStyle::visualRect(layoutDirection(), row, label).contains(place);
}

/// The arrow that opens an item stands in front of it, within one step of indentation.
bool CTreeView::IsOnBranch(const CTreeItem& item, const QPoint& place) const
{
    const bool mayOpen =
        item.childCount() > 0 || item.childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator;
    if (!mayOpen || !itemsExpandable())
        return false;
    const QRect row = visualRect(indexFromItem(&item));
    return isRightToLeft() ? place.x() > row.right() && place.x() <= row.right() + indentation()
                           : place.x() < row.left() && place.x() >= row.left() - indentation();
}

void CTreeView::mousePressEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    CTreeItem* item = FindAt(place);
    if (event->button() == Qt::RightButton)
    {
        m_Peer.TellPlain(NM_RCLICK);
        return;
    }
    if (!item || event->button() != Qt::LeftButton)
        return QTreeWidget::mousePressEvent(event);
    if (IsOnBranch(*item, place))
    {
        m_Peer.Open(*item, !item->isExpanded());
        return;
    }
    if (IsOnMark(place))
        m_Peer.OnMark(*item);
    else if (item == currentItem() || m_Peer.MaySelect(item, TVC_BYMOUSE))
        QTreeWidget::mousePressEvent(event);
    m_Peer.TellPlain(NM_CLICK);
}

void CTreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    CTreeItem* item = FindAt(place);
    if (!item || event->button() != Qt::LeftButton || IsOnMark(place) || IsOnBranch(*item, place))
        return mousePressEvent(event); // the second of two quick clicks
    const HTREEITEM handle = item->m_Handle;
    if (m_Peer.TellPlain(NM_DBLCLK) != 0 || !m_Peer.IsOpen())
        return;
    item = m_Peer.Find(handle);
    if (item && item->childCount() > 0)
        m_Peer.Open(*item, !item->isExpanded());
}

/// Where a key goes; null if it goes nowhere.
CTreeItem* CTreeView::FindTarget(int key)
{
    const CTreeItem* item = ToItem(currentItem());
    switch (key)
    {
    case Qt::Key_Up:
        return ToItem(itemFromIndex(moveCursor(MoveUp, Qt::NoModifier)));
    case Qt::Key_Down:
        return ToItem(itemFromIndex(moveCursor(MoveDown, Qt::NoModifier)));
    case Qt::Key_Home:
        return ToItem(itemFromIndex(moveCursor(MoveHome, Qt::NoModifier)));
    case Qt::Key_End:
        return ToItem(itemFromIndex(moveCursor(MoveEnd, Qt::NoModifier)));
    case Qt::Key_PageUp:
        return ToItem(itemFromIndex(moveCursor(MovePageUp, Qt::NoModifier)));
    case Qt::Key_PageDown:
        return ToItem(itemFromIndex(moveCursor(MovePageDown, Qt::NoModifier)));
    case Qt::Key_Left:
        return item ? ToItem(item->parent()) : nullptr;
    case Qt::Key_Right:
        return item ? ToItem(item->child(0)) : nullptr;
    default:
        return nullptr;
    }
}

/// Left and right close and open an item before they leave it.
bool CTreeView::OpenByKey(CTreeItem& item, int key)
{
    const bool closes = key == Qt::Key_Left || key == Qt::Key_Minus;
    const bool opens = key == Qt::Key_Right || key == Qt::Key_Plus;
    if (item.childCount() == 0 || !(closes || opens) || item.isExpanded() == opens)
        return key == Qt::Key_Minus || key == Qt::Key_Plus;
    m_Peer.Open(item, opens);
    return true;
}

void CTreeView::keyPressEvent(QKeyEvent* event)
{
    if (state() == EditingState && !hasFocus())
        return QTreeWidget::keyPressEvent(event); // what the label's field left over
    int key = event->key();
    if (isRightToLeft() && (key == Qt::Key_Left || key == Qt::Key_Right))
        key = key == Qt::Key_Left ? Qt::Key_Right : Qt::Key_Left;
    CTreeItem* item = ToItem(currentItem());
    if (item && OpenByKey(*item, key))
        return;
    if (item && key == Qt::Key_Space)
        return m_Peer.OnMark(*item);
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
    {
        m_Peer.TellPlain(NM_RETURN);
        return;
    }
    CTreeItem* target = FindTarget(key);
    if (!target)
        return QTreeWidget::keyPressEvent(event);
    if (target != item)
        m_Peer.GoTo(*target);
}

bool CTreeView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    const bool begins = trigger == AllEditTriggers || trigger == EditKeyPressed;
    CTreeItem* item = ToItem(itemFromIndex(index));
    if (begins && item && item->flags() & Qt::ItemIsEditable && !m_Peer.MayEditLabel(*item))
        return false;
    return QTreeWidget::edit(index, trigger, event);
}

} // namespace utility
