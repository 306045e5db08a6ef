#pragma once

#include <QTreeWidget>

namespace utility
{

class CTreeItem;
class CTreePeer;

/// The widget of a tree: asks the peer before it selects, opens, marks or edits.
class CTreeView final : public QTreeWidget
{
public:
    CTreeView(CTreePeer& peer, QWidget* parent) : QTreeWidget(parent), m_Peer(peer) {}

    bool IsOnMark(const QPoint& place) const;
    /// On its picture, text or mark, not beside them.
    bool IsOnItem(const CTreeItem& item, const QPoint& place) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

private:
    CTreeItem* FindAt(const QPoint& place) const;
    QRect MarkOf(const QModelIndex& index) const;
    bool IsOnBranch(const CTreeItem& item, const QPoint& place) const;
    CTreeItem* FindTarget(int key);
    bool OpenByKey(CTreeItem& item, int key);

    CTreePeer& m_Peer;
};

} // namespace utility
