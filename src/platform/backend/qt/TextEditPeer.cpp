#include "platform/backend/qt/TextEditPeer.h"

#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Edit.h"

#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace utility
{

namespace
{

Qt::ScrollBarPolicy ToPolicy(bool isAllowed)
{
    return isAllowed ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
}

/// The document counts one unit for each line end, the window's text two.
int ToOutside(const QTextDocument& document, int position)
{
    return position + document.findBlock(position).blockNumber();
}

int ToInside(const QTextDocument& document, int position)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    {
        const int start = block.position() + block.blockNumber();
        if (position <= start + block.length())
            return block.position() + std::clamp(position - start, 0, block.length() - 1);
    }
    return std::max(0, document.characterCount() - 1);
}

} // namespace

CTextEditPeer::CTextEditPeer(const CWindowRequest& request, QWidget* parent)
    : CEditPeer(request, new QPlainTextEdit(parent))
{
    const DWORD style = request.m_Style;
    QPlainTextEdit& field = Field();
    field.setPlainText(ToQString(request.m_Title));
    field.setReadOnly((style & ES_READONLY) != 0);
    field.setTabChangesFocus(true);
    field.setVerticalScrollBarPolicy(ToPolicy((style & WS_VSCROLL) != 0));
    field.setHorizontalScrollBarPolicy(ToPolicy((style & WS_HSCROLL) != 0));
    field.setLineWrapMode(style & (ES_AUTOHSCROLL | WS_HSCROLL) ? QPlainTextEdit::NoWrap
                                                                : QPlainTextEdit::WidgetWidth);
    Bridge().Watch(*field.viewport());
    QObject::connect(&field, &QPlainTextEdit::textChanged, &Bridge(), [this] { OnChange(); });
}

void CTextEditPeer::SetText(const CString& text)
{
    const bool wasOwnChange = std::exchange(m_IsOwnChange, true);
    Field().setPlainText(ToQString(text)); // takes both kinds of line ends
    m_IsOwnChange = wasOwnChange;
}

CString CTextEditPeer::GetText() const
{
    return ToCString(Field().toPlainText().replace(u'\n', QStringLiteral("\r\n")));
}

CEditPeer::CRange CTextEditPeer::GetRange() const
{
    const QTextCursor cursor = Field().textCursor();
    const QTextDocument& document = *Field().document();
    return {ToOutside(document, cursor.selectionStart()),
            ToOutside(document, cursor.selectionEnd())};
}

void CTextEditPeer::SelectRange(CRange range)
{
    const QTextDocument& document = *Field().document();
    QTextCursor cursor = Field().textCursor();
    cursor.setPosition(ToInside(document, range.m_First));
    cursor.setPosition(ToInside(document, range.m_Last), QTextCursor::KeepAnchor);
    Field().setTextCursor(cursor);
}

void CTextEditPeer::Deselect()
{
    QTextCursor cursor = Field().textCursor();
    cursor.clearSelection();
    Field().setTextCursor(cursor);
}

void CTextEditPeer::Replace(const QString& text)
{
    const int limit = std::exchange(m_Limit, 0);
    QString lines = text;
    Field().insertPlainText(lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    m_Limit = limit;
}

void CTextEditPeer::SetReadOnly(bool readOnly)
{
    Field().setReadOnly(readOnly);
}

int CTextEditPeer::GetLineCount() const
{
    return Field().document()->lineCount();
}

void CTextEditPeer::Clip(UINT message)
{
    switch (message)
    {
    case WM_CUT:
        return Field().cut();
    case WM_COPY:
        return Field().copy();
    case WM_PASTE:
        return Field().paste();
    default:
        return Field().textCursor().removeSelectedText();
    }
}

LRESULT CTextEditPeer::GetDialogCode() const
{
    const LRESULT enter = GetStyle() & ES_WANTRETURN ? DLGC_WANTALLKEYS : 0;
    return CEditPeer::GetDialogCode() | enter;
}

/// What the user typed or pasted beyond the limit goes again, from its end.
void CTextEditPeer::OnChange()
{
    if (m_IsOwnChange)
        return;
    const int excess = m_Limit == 0 ? 0 : GetText().GetLength() - m_Limit;
    if (excess > 0)
    {
        m_IsOwnChange = true;
        QTextCursor cursor = Field().textCursor();
        const int first = ToInside(*Field().document(),
                                   ToOutside(*Field().document(), cursor.position()) - excess);
        cursor.setPosition(std::max(0, first), QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        m_IsOwnChange = false;
        NotifyParent(EN_MAXTEXT);
    }
    if (IsOpen())
        TellChange();
}

} // namespace utility
