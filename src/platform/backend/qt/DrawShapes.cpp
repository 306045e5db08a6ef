#include "platform/backend/qt/DeviceContext.h"
#include "platform/backend/qt/Values.h"
#include "platform/ui/drawing/Brush.h"

#include <QApplication>
#include <QStyle>
#include <QStyleOption>

#include <utility>

namespace utility
{

namespace
{

/// The painter with pen and brush set; null if the context only measures.
QPainter* PrepareShape(const QPen& pen, const QBrush& brush, QPainter* painter)
{
    if (painter)
    {
        painter->setPen(pen);
        painter->setBrush(brush);
    }
    return painter;
}

QPainter::CompositionMode ToRasterOperation(DWORD code, bool& isKnown)
{
    isKnown = true;
    switch (code)
    {
    case SRCCOPY:
        return QPainter::CompositionMode_Source;
    case SRCPAINT:
        return QPainter::RasterOp_SourceOrDestination;
    case SRCAND:
        return QPainter::RasterOp_SourceAndDestination;
    case SRCINVERT:
        return QPainter::RasterOp_SourceXorDestination;
    default:
        isKnown = false;
        return QPainter::CompositionMode_SourceOver;
    }
}

} // namespace

void CDC::FillRect(const CRect& rect, const CBrush* brush)
{
    if (m_Backend->m_Painter && brush && !brush->IsHollow())
        m_Backend->m_Painter->fillRect(ToQRect(rect), ToQColor(brush->GetColour()));
}

void CDC::FillSolidRect(const CRect& rect, COLORREF colour)
{
    SetBkColor(colour);
    if (m_Backend->m_Painter)
        m_Backend->m_Painter->fillRect(ToQRect(rect), ToQColor(colour));
}

void CDC::FrameRect(const CRect& rect, const CBrush* brush)
{
    FillRect({rect.left, rect.top, rect.right, rect.top + 1}, brush);
    FillRect({rect.left, rect.bottom - 1, rect.right, rect.bottom}, brush);
    FillRect({rect.left, rect.top, rect.left + 1, rect.bottom}, brush);
    FillRect({rect.right - 1, rect.top, rect.right, rect.bottom}, brush);
}

void CDC::Rectangle(const CRect& rect)
{
    if (rect.IsRectEmpty())
        return;
    QPen pen = m_Backend->GetPen();
    pen.setCapStyle(Qt::SquareCap);
    if (QPainter* painter = PrepareShape(pen, m_Backend->GetBrush(), m_Backend->m_Painter))
        painter->drawRect(rect.left, rect.top, rect.Width() - 1, rect.Height() - 1);
}

void CDC::Polygon(std::span<const CPoint> points)
{
    QPolygon polygon;
    polygon.reserve(static_cast<int>(points.size()));
    for (const CPoint point : points)
        polygon.append(ToQPoint(point));
    if (m_Backend->m_IsInPath)
    {
        m_Backend->m_Path->addPolygon(polygon);
        m_Backend->m_Path->closeSubpath();
    }
    else if (QPainter* painter =
                 PrepareShape(m_Backend->GetPen(), m_Backend->GetBrush(), m_Backend->m_Painter))
        painter->drawPolygon(polygon);
}

void CDC::InvertRect(const CRect& rect)
{
    QPainter* painter = m_Backend->m_Painter;
    if (!painter)
        return;
    painter->save();
    painter->setCompositionMode(QPainter::CompositionMode_Difference);
    painter->fillRect(ToQRect(rect), Qt::white);
    painter->restore();
}

void CDC::DrawFocusRect(const CRect& rect)
{
    if (!m_Backend->m_Painter)
        return;
    QStyleOptionFocusRect option;
    option.rect = ToQRect(rect);
    option.palette = QApplication::palette();
    option.state = QStyle::State_Enabled | QStyle::State_KeyboardFocusChange;
    option.backgroundColor = ToQColor(m_Backend->m_BackColour);
    QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, m_Backend->m_Painter);
}

CPoint CDC::MoveTo(CPoint point)
{
    if (m_Backend->m_IsInPath)
        m_Backend->m_Path->moveTo(ToQPoint(point));
    return std::exchange(m_Backend->m_Place, point);
}

void CDC::LineTo(CPoint point)
{
    const CPoint from = std::exchange(m_Backend->m_Place, point);
    if (m_Backend->m_IsInPath)
        m_Backend->m_Path->lineTo(ToQPoint(point));
    else if (QPainter* painter = PrepareShape(m_Backend->GetPen(), QBrush(), m_Backend->m_Painter))
        painter->drawLine(ToQPoint(from), ToQPoint(point));
}

void CDC::BeginPath()
{
    m_Backend->m_Path.emplace(ToQPoint(m_Backend->m_Place));
    m_Backend->m_IsInPath = true;
}

void CDC::EndPath()
{
    m_Backend->m_IsInPath = false;
}

void CDC::FillPath()
{
    EndPath();
    const auto path = std::exchange(m_Backend->m_Path, std::nullopt);
    if (m_Backend->m_Painter && path)
        m_Backend->m_Painter->fillPath(*path, m_Backend->GetBrush());
}

void CDC::StrokeAndFillPath()
{
    EndPath();
    auto path = std::exchange(m_Backend->m_Path, std::nullopt);
    if (!path)
        return;
    path->closeSubpath();
    if (QPainter* painter =
            PrepareShape(m_Backend->GetPen(), m_Backend->GetBrush(), m_Backend->m_Painter))
        painter->drawPath(*path);
}

bool CDC::BitBlt(const CRect& place, const CDC* source, CPoint from, DWORD code)
{
    bool isKnown = false;
    const auto mode = ToRasterOperation(code, isKnown);
    if (!isKnown || !source || source->m_Backend->m_Image.isNull())
        return false;
    QPainter* painter = m_Backend->m_Painter;
    if (!painter)
        return true;
    // On a widget a copy lays clear dots over what is there; inside a bitmap it takes them along.
    const bool isCopy = code == SRCCOPY;
    painter->save();
    painter->setCompositionMode(
        isCopy && !m_Backend->m_IsMemory ? QPainter::CompositionMode_SourceOver : mode);
    painter->drawImage(ToQRect(place).topLeft(), source->m_Backend->m_Image,
                       QRect(ToQPoint(from), QSize(place.Width(), place.Height())));
    painter->restore();
    return true;
}

} // namespace utility
