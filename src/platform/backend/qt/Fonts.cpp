#include "platform/backend/qt/Fonts.h"

#include "platform/backend/qt/Values.h"
#include "platform/ui/drawing/Font.h"

#include <QFontInfo>
#include <QFontMetrics>

#include <algorithm>

namespace utility
{

namespace
{

/// A line's height holds the letters' height and the room above and below it.
void SetLineHeight(QFont& font, int height)
{
    font.setPixelSize(std::max(1, height));
    const int line = QFontMetrics(font).height();
    if (line > 0)
        font.setPixelSize(std::max(1, height * height / line));
}

} // namespace

QFont ToQFont(const LOGFONT& font, const QFont& desktop)
{
    QFont result = desktop;
    if (!font.lfFaceName.IsEmpty())
        result.setFamily(ToQString(font.lfFaceName));
    if (font.lfHeight < 0)
        result.setPixelSize(-font.lfHeight);
    else if (font.lfHeight > 0)
        SetLineHeight(result, font.lfHeight);
    if (font.lfWeight > 0)
        result.setWeight(static_cast<QFont::Weight>(std::min<LONG>(font.lfWeight, 1000)));
    result.setItalic(font.lfItalic != 0);
    result.setUnderline(font.lfUnderline != 0);
    result.setStrikeOut(font.lfStrikeOut != 0);
    return result;
}

LOGFONT ToLogFont(const QFont& font)
{
    LOGFONT result;
    result.lfHeight = -QFontInfo(font).pixelSize();
    result.lfWeight = font.weight();
    result.lfItalic = font.italic();
    result.lfUnderline = font.underline();
    result.lfStrikeOut = font.strikeOut();
    result.lfFaceName = ToCString(font.family());
    return result;
}

} // namespace utility
