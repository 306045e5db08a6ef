#pragma once

#include <QStyledItemDelegate>

#include <functional>
#include <vector>

namespace utility
{

class CListModel;
class CQtWindowPeer;

/// Paints and measures the rows of a list or combo: by the desktop's style, or by their owner.
class CListDelegate final : public QStyledItemDelegate
{
public:
    /// `kind` is ODT_LISTBOX or ODT_COMBOBOX.
    CListDelegate(const CQtWindowPeer& peer, const CListModel& model, unsigned kind,
                  QObject* parent);

    /// 0: as the style likes.
    void SetHeight(int height) { m_Height = height; }
    int GetHeight(const QWidget& list) const;
    /// Rows are at least so wide.
    void SetExtent(int width) { m_Extent = width; }
    /// In pixels from the row's beginning; empty: tabs are blanks.
    void SetTabStops(std::vector<int> stops) { m_TabStops = std::move(stops); }
    /// Called for a click on a row's mark.
    void SetMarkHandler(std::function<void(int row)> handler) { m_OnMark = std::move(handler); }
    bool IsOnMark(const QStyleOptionViewItem& option, const QModelIndex& index,
                  const QPoint& place) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    bool IsOwnerDrawn() const;
    void PaintByOwner(QPainter& painter, const QStyleOptionViewItem& option, int row) const;
    void PaintTabs(QPainter& painter, const QStyleOptionViewItem& option,
                   const QModelIndex& index) const;
    int MeasureByOwner(int row, int height) const;

    const CQtWindowPeer& m_Peer;
    const CListModel& m_Model;
    unsigned m_Kind;
    int m_Height = 0;
    int m_Extent = 0;
    std::vector<int> m_TabStops;
    std::function<void(int row)> m_OnMark;
};

/// Has a row, or the field of a combo for all ones, painted by the parent or, if that does not, by
/// the control itself.
void DrawRowByOwner(const CQtWindowPeer& peer, unsigned kind, unsigned row, unsigned state,
                    std::intptr_t data, const QRect& place, QPainter& painter);

} // namespace utility
