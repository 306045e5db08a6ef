#pragma once

#include "platform/base/Colour.h"
#include "platform/base/Rect.h"
#include "platform/base/String.h"

#include <QColor>
#include <QRect>
#include <QString>

/// Plain values in our form and in that of the window system.
namespace utility
{

inline QString ToQString(const CString& text)
{
    return QString::fromUtf16(text.GetString(), text.GetLength());
}

inline CString ToCString(const QString& text)
{
    return CString(reinterpret_cast<const char16_t*>(text.utf16()), static_cast<int>(text.size()));
}

inline QColor ToQColor(COLORREF colour)
{
    return QColor(GetRValue(colour), GetGValue(colour), GetBValue(colour));
}

inline COLORREF ToColour(const QColor& colour)
{
    return RGB(colour.red(), colour.green(), colour.blue());
}

inline QPoint ToQPoint(CPoint point)
{
    return QPoint(point.x, point.y);
}

inline CPoint ToPoint(const QPoint& point)
{
    return CPoint(point.x(), point.y());
}

inline QRect ToQRect(const CRect& rect)
{
    return QRect(rect.left, rect.top, rect.Width(), rect.Height());
}

inline CRect ToRect(const QRect& rect)
{
    return CRect(rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height());
}

} // namespace utility
