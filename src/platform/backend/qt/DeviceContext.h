#pragma once

#include "platform/ui/drawing/DC.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <optional>

class QWidget;

namespace utility
{

/// A context's painter and tools. Without a painter it measures with the font alone.
struct CDC::CBackend
{
    /// Draws by a painter that somebody else has begun.
    CBackend(QPainter* painter, const QFont& font);
    /// Draws on a widget if that is being painted.
    explicit CBackend(QWidget* widget);

    QPen GetPen() const;
    QBrush GetBrush() const;
    QFont GetFont() const;
    /// Ends drawing into a bitmap and begins with the next, which may be null.
    void DrawInto(CBitmap* bitmap);

    QImage m_Image;                // over the dots of m_Bitmap; outlives its painter
    QPainter* m_Painter = nullptr; // null: measures only
    std::optional<QPainter> m_Own; // what m_Painter may point to
    QFont m_BaseFont;              // as long as no font is selected
    CPoint m_Place;
    std::optional<QPainterPath> m_Path; // between BeginPath and its use
    bool m_IsInPath = false;
    bool m_IsMemory = false; // bitmaps may be selected

    // As selected; null stands for what a context begins with
    CPen* m_Pen = nullptr;
    CBrush* m_Brush = nullptr;
    CFont* m_Font = nullptr;
    CBitmap* m_Bitmap = nullptr;
    COLORREF m_TextColour = 0;
    COLORREF m_BackColour = RGB(255, 255, 255);
    int m_BackMode = OPAQUE;
};

/// A context over a painter, as the owner of a control's rows is given it.
class CPainterDC final : public CDC
{
public:
    CPainterDC(QPainter& painter, const QFont& font)
        : CDC(std::make_unique<CBackend>(&painter, font))
    {
    }
};

} // namespace utility
