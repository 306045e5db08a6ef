#include "platform/backend/qt/LineEditPeer.h"

#include "platform/backend/qt/ControlMakers.h"
#include "platform/backend/qt/TextEditPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Edit.h"

#include <QApplication>
#include <QClipboard>
#include <QValidator>

#include <algorithm>
#include <limits>
#include <utility>

namespace utility
{

namespace
{

/// Lets digits alone through, or turns what comes into one case.
class CTypeRule final : public QValidator
{
public:
    CTypeRule(DWORD style, QObject* parent) : QValidator(parent), m_Style(style) {}

    State validate(QString& text, int&) const override
    {
        if (m_Style & ES_UPPERCASE)
            text = text.toUpper();
        if (m_Style & ES_LOWERCASE)
            text = text.toLower();
        const bool isRefused =
            m_Style & ES_NUMBER &&
            !std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.isDigit(); });
        return isRefused ? Invalid : Acceptable;
    }

private:
    DWORD m_Style;
};

Qt::Alignment ToAlignment(DWORD style)
{
    if (style & ES_CENTER)
        return Qt::AlignHCenter | Qt::AlignVCenter;
    return (style & ES_RIGHT ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

} // namespace

std::unique_ptr<CQtWindowPeer> MakeEditPeer(const CWindowRequest& request, QWidget* parent)
{
    if (request.m_Style & ES_MULTILINE)
        return std::make_unique<CTextEditPeer>(request, parent);
    return std::make_unique<CLineEditPeer>(request, parent);
}

CLineEditPeer::CLineEditPeer(const CWindowRequest& request, QWidget* parent)
    : CEditPeer(request, new QLineEdit(parent))
{
    const DWORD style = request.m_Style;
    QLineEdit& field = Field();
    field.setText(ToQString(request.m_Title));
    field.setAlignment(ToAlignment(style));
    field.setReadOnly((style & ES_READONLY) != 0);
    if (style & ES_PASSWORD)
        field.setEchoMode(QLineEdit::Password);
    if (style & (ES_UPPERCASE | ES_LOWERCASE | ES_NUMBER))
        field.setValidator(new CTypeRule(style, &field));
    KeepLimit();

    QObject::connect(&field, &QLineEdit::textChanged, &Bridge(),
                     [this]
                     {
                         KeepLimit();
                         if (!m_IsOwnChange)
                             TellChange();
                     });
    QObject::connect(&field, &QLineEdit::inputRejected, &Bridge(),
                     [this]
                     {
                         if (m_Limit > 0 && Field().text().size() >= m_Limit)
                             NotifyParent(EN_MAXTEXT);
                     });
}

void CLineEditPeer::SetText(const CString& text)
{
    const bool wasOwnChange = std::exchange(m_IsOwnChange, true);
    SetRoom(std::numeric_limits<int>::max());
    Field().setText(ToQString(text));
    Field().setCursorPosition(0);
    KeepLimit();
    m_IsOwnChange = wasOwnChange;
    TellChange();
}

CString CLineEditPeer::GetText() const
{
    return ToCString(Field().text());
}

CEditPeer::CRange CLineEditPeer::GetRange() const
{
    const QLineEdit& field = Field();
    if (!field.hasSelectedText())
        return {field.cursorPosition(), field.cursorPosition()};
    return {field.selectionStart(), field.selectionEnd()};
}

void CLineEditPeer::SelectRange(CRange range)
{
    Field().setSelection(range.m_First, range.m_Last - range.m_First);
}

void CLineEditPeer::Deselect()
{
    Field().deselect();
}

void CLineEditPeer::ShowCaret()
{
    Field().cursorForward(Field().hasSelectedText(), 0);
}

void CLineEditPeer::Replace(const QString& text)
{
    SetRoom(std::numeric_limits<int>::max());
    Field().insert(text);
    if (IsOpen())
        KeepLimit();
}

void CLineEditPeer::SetLimit(int limit)
{
    m_Limit = std::max(0, limit);
    KeepLimit();
}

/// A text that is longer already stays, but grows no more.
void CLineEditPeer::KeepLimit()
{
    const int length = static_cast<int>(Field().text().size());
    SetRoom(m_Limit == 0 ? std::numeric_limits<int>::max() : std::max(m_Limit, length));
}

/// The widget sets its text anew with each change of its room.
void CLineEditPeer::SetRoom(int units)
{
    QLineEdit& field = Field();
    if (field.maxLength() == units)
        return;
    const CRange range = GetRange();
    const bool wasModified = field.isModified();
    field.setMaxLength(units);
    field.setSelection(range.m_First, range.m_Last - range.m_First);
    field.setModified(wasModified);
}

void CLineEditPeer::Clip(UINT message)
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
        return Field().del();
    }
}

} // namespace utility
