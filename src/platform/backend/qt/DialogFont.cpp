#include "platform/ui/DialogFont.h"

#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/backend/qt/Values.h"

#include <QApplication>
#include <QFontMetrics>

namespace utility
{

namespace
{

QFont FontOf(const CString& face, WORD height)
{
    QFont font = QApplication::font();
    if (!face.IsEmpty())
        font.setFamily(ToQString(face));
    font.setPointSize(height);
    return font;
}

/// The average letter is that of both alphabets, as templates have always been measured.
CDialogUnits UnitsOf(const QFont& font)
{
    static const QString LETTERS =
        QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    const QFontMetrics metrics(font);
    const int width = metrics.horizontalAdvance(LETTERS);
    const auto count = static_cast<int>(LETTERS.size());
    return {(width + count / 2) / count, metrics.height()};
}

} // namespace

CDialogUnits GetDialogUnits()
{
    return UnitsOf(QApplication::font());
}

CDialogUnits GetDialogUnits(const CString& face, WORD height)
{
    return UnitsOf(FontOf(face, height));
}

void SetDialogFont(const CWnd& dialog, const CString& face, WORD height)
{
    if (QWidget* widget = WidgetOf(dialog))
        widget->setFont(FontOf(face, height));
}

} // namespace utility
