#include "platform/backend/qt/DeviceContext.h"
#include "platform/backend/qt/Values.h"

#include <QFontMetrics>

namespace utility
{

namespace
{

int ToTextFlags(UINT format)
{
    int flags = format & DT_CENTER  ? Qt::AlignHCenter
                : format & DT_RIGHT ? Qt::AlignRight
                                    : Qt::AlignLeft;
    if (!(format & DT_SINGLELINE))
        flags |= Qt::AlignTop;
    else if (format & DT_VCENTER)
        flags |= Qt::AlignVCenter;
    else
        flags |= format & DT_BOTTOM ? Qt::AlignBottom : Qt::AlignTop;

    constexpr std::pair<UINT, int> BITS[] = {{DT_SINGLELINE, Qt::TextSingleLine},
                                             {DT_WORDBREAK, Qt::TextWordWrap},
                                             {DT_EXPANDTABS, Qt::TextExpandTabs},
                                             {DT_NOCLIP, Qt::TextDontClip}};
    for (const auto& [bit, flag] : BITS)
    {
        if (format & bit)
            flags |= flag;
    }
    return format & DT_NOPREFIX ? flags : flags | Qt::TextShowMnemonic;
}

} // namespace

void CDC::TextOut(int x, int y, const CString& text)
{
    CRect rect({x, y}, GetTextExtent(text));
    DrawText(text, rect, DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
}

int CDC::DrawText(const CString& text, CRect& rect, UINT format)
{
    const QFont font = m_Backend->GetFont();
    const QFontMetrics metrics(font);
    const int flags = ToTextFlags(format);
    QString shown = ToQString(text);
    // A height without end: how far down the text goes is what is asked.
    constexpr int NO_LIMIT = 1 << 24;
    const int width = format & DT_WORDBREAK ? rect.Width() : NO_LIMIT;
    const QRect needed =
        metrics.boundingRect(QRect(0, 0, width, NO_LIMIT),
                             flags & ~(Qt::AlignHorizontal_Mask | Qt::AlignVertical_Mask), shown);
    if (format & DT_CALCRECT)
    {
        rect = CRect(rect.TopLeft(), CSize(needed.width(), needed.height()));
        return needed.height();
    }
    QPainter* painter = m_Backend->m_Painter;
    if (!painter)
        return needed.height();

    if (format & DT_END_ELLIPSIS)
        shown = metrics.elidedText(shown, Qt::ElideRight, rect.Width(), flags);
    painter->setFont(font);
    painter->setPen(ToQColor(m_Backend->m_TextColour));
    if (m_Backend->m_BackMode == OPAQUE)
    {
        const QRect ground = metrics.boundingRect(ToQRect(rect), flags, shown);
        painter->fillRect(format & DT_NOCLIP ? ground : ground & ToQRect(rect),
                          ToQColor(m_Backend->m_BackColour));
    }
    painter->drawText(ToQRect(rect), flags, shown);
    return needed.height();
}

CSize CDC::GetTextExtent(const CString& text) const
{
    const QFontMetrics metrics(m_Backend->GetFont());
    return {metrics.horizontalAdvance(ToQString(text)), metrics.height()};
}

TEXTMETRIC CDC::GetTextMetrics() const
{
    const QFontMetrics metrics(m_Backend->GetFont());
    TEXTMETRIC result;
    result.tmHeight = metrics.height();
    result.tmAscent = metrics.ascent();
    result.tmDescent = metrics.descent();
    result.tmExternalLeading = metrics.leading();
    result.tmAveCharWidth = metrics.averageCharWidth();
    result.tmMaxCharWidth = metrics.maxWidth();
    return result;
}

} // namespace utility
