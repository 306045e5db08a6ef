#include "platform/backend/qt/ListDelegate.h"

#include "platform/backend/qt/DeviceContext.h"
#include "platform/backend/qt/ListModel.h"
#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/OwnerDraw.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace utility
{

namespace
{

// Lists and combos have the same bits for being drawn by their owner.
static_assert(LBS_OWNERDRAWFIXED == CBS_OWNERDRAWFIXED);
static_assert(LBS_OWNERDRAWVARIABLE == CBS_OWNERDRAWVARIABLE);
constexpr DWORD OWNER_DRAWN = LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE;

/// To the parent, and what that leaves to the control itself.
void AskOwner(const CQtWindowPeer& peer, UINT message, void* record)
{
    const auto parameter = reinterpret_cast<LPARAM>(record);
    const CWnd* parent = CWnd::FromHandle(peer.GetParent());
    if (!parent || !parent->SendMessage(message, peer.GetId(), parameter))
        peer.Send(message, peer.GetId(), parameter);
}

UINT ToItemState(QStyle::State state)
{
    UINT result = 0;
    if (state & QStyle::State_Selected)
        result |= ODS_SELECTED;
    if (!(state & QStyle::State_Enabled))
        result |= ODS_DISABLED;
    if (state & QStyle::State_HasFocus)
        result |= ODS_FOCUS;
    return result;
}

} // namespace

void DrawRowByOwner(const CQtWindowPeer& peer, unsigned kind, unsigned row, unsigned state,
                    std::intptr_t data, const QRect& place, QPainter& painter)
{
    painter.save();
    painter.setClipRect(place);
    CPainterDC context(painter, painter.font());
    DRAWITEMSTRUCT item;
    item.CtlType = kind;
    item.CtlID = peer.GetId();
    item.itemID = row;
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = state;
    item.hwndItem = peer.GetHandle();
    item.hDC = context.GetSafeHdc();
    item.rcItem = ToRect(place);
    item.itemData = data;
    AskOwner(peer, WM_DRAWITEM, &item);
    painter.restore();
}

CListDelegate::CListDelegate(const CQtWindowPeer& peer, const CListModel& model, unsigned kind,
                             QObject* parent)
    : QStyledItemDelegate(parent),
      m_Peer(peer),
      m_Model(model),
      m_Kind(kind)
{
}

int CListDelegate::GetHeight(const QWidget& list) const
{
    if (m_Height > 0)
        return m_Height;
    QStyleOptionViewItem option;
    option.initFrom(&list);
    option.font = list.font();
    option.fontMetrics = QFontMetrics(option.font);
    option.text = QStringLiteral(" ");
    option.features = QStyleOptionViewItem::HasDisplay;
    return list.style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, &list).height();
}

bool CListDelegate::IsOwnerDrawn() const
{
    return (m_Peer.GetStyle() & OWNER_DRAWN) != 0;
}

void CListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const
{
    if (!m_Model.Has(index.row()))
        return;
    if (IsOwnerDrawn())
        PaintByOwner(*painter, option, index.row());
    else if (!m_TabStops.empty())
        PaintTabs(*painter, option, index);
    else
    {
        QStyleOptionViewItem row = option;
        if (!m_Model.HasForeignRows() && !m_Model.GetRow(index.row()).m_IsEnabled)
            row.state &= ~QStyle::State_Enabled;
        QStyledItemDelegate::paint(painter, row, index);
    }
}

void CListDelegate::PaintByOwner(QPainter& painter, const QStyleOptionViewItem& option,
                                 int row) const
{
    DrawRowByOwner(m_Peer, m_Kind, static_cast<unsigned>(row), ToItemState(option.state),
                   m_Model.GetData(row), option.rect, painter);
}

/// The row without its text by the style, then the text piece by piece.
void CListDelegate::PaintTabs(QPainter& painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QString text = std::exchange(row.text, QString());
    const QWidget* list = option.widget;
    QStyle* style = list ? list->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, &painter, list);
    const QRect place = style->subElementRect(QStyle::SE_ItemViewItemText, &row, list);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, list) + 1;

    painter.save();
    QTextOption layout(Qt::AlignLeft | Qt::AlignVCenter);
    layout.setWrapMode(QTextOption::NoWrap);
    layout.setTextDirection(option.direction);
    QList<QTextOption::Tab> tabs;
    for (const int stop : m_TabStops)
        tabs.append(QTextOption::Tab(stop, QTextOption::LeftTab));
    layout.setTabs(tabs);
    layout.setTabStopDistance(m_TabStops.back());
    const bool isSelected = row.state & QStyle::State_Selected;
    painter.setPen(row.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter.setFont(row.font);
    painter.drawText(QRectF(place.adjusted(margin, 0, 0, 0)), text, layout);
    painter.restore();
}

QSize CListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QSize size = IsOwnerDrawn() ? QSize(0, m_Height > 0 ? m_Height : option.fontMetrics.height())
                                : QStyledItemDelegate::sizeHint(option, index);
    size.setWidth(std::max(size.width(), m_Extent));
    if (m_Height > 0)
        size.setHeight(m_Height);
    if (!m_Model.Has(index.row()) || m_Model.HasForeignRows())
        return size;
    const int own = m_Model.GetRow(index.row()).m_Height;
    if (own > 0)
        size.setHeight(own);
    else if (IsOwnerDrawn() && m_Height == 0)
        size.setHeight(MeasureByOwner(index.row(), size.height()));
    return size;
}

int CListDelegate::MeasureByOwner(int row, int height) const
{
    MEASUREITEMSTRUCT item;
    item.CtlType = m_Kind;
    item.CtlID = m_Peer.GetId();
    item.itemID = static_cast<UINT>(row);
    item.itemHeight = static_cast<UINT>(height);
    item.itemData = m_Model.GetData(row);
    AskOwner(m_Peer, WM_MEASUREITEM, &item);
    return std::max(1, static_cast<int>(item.itemHeight));
}

bool CListDelegate::IsOnMark(const QStyleOptionViewItem& option, const QModelIndex& index,
                             const QPoint& place) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QWidget* list = option.widget;
    const QStyle* style = list ? list->style() : QApplication::style();
    return row.features & QStyleOptionViewItem::HasCheckIndicator &&
           style->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &row, list).contains(place);
}

bool CListDelegate::editorEvent(QEvent* event, QAbstractItemModel*,
                                const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (!m_OnMark || event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto* click = static_cast<QMouseEvent*>(event);
    if (click->button() != Qt::LeftButton || !IsOnMark(option, index, click->position().toPoint()))
        return false;
    m_OnMark(index.row());
    return true;
}

} // namespace utility
