#include "platform/backend/qt/StaticPeer.h"

#include "platform/backend/qt/ControlMakers.h"
#include "platform/backend/qt/Pictures.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Static.h"
#include "platform/ui/drawing/Bitmap.h"
#include "platform/ui/drawing/ImageTypes.h"

#include <QPainter>
#include <QStyle>

#include <utility>

namespace utility
{

namespace
{

/// A label that shortens its text where it is too long for one line.
class CShorteningLabel final : public QLabel
{
public:
    CShorteningLabel(Qt::TextElideMode mode, QWidget* parent) : QLabel(parent), m_Mode(mode) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        drawFrame(&painter);
        const QRect place = contentsRect();
        const QString shown = fontMetrics().elidedText(text(), m_Mode, place.width());
        style()->drawItemText(&painter, place, static_cast<int>(alignment()), palette(),
                              isEnabled(), shown, foregroundRole());
    }

private:
    Qt::TextElideMode m_Mode;
};

bool IsEtched(DWORD kind)
{
    return kind == SS_ETCHEDHORZ || kind == SS_ETCHEDVERT || kind == SS_ETCHEDFRAME;
}

/// An etched line or frame.
class CEtchedPeer final : public CQtWindowPeer
{
public:
    CEtchedPeer(const CWindowRequest& request, QWidget* parent)
        : CQtWindowPeer(request, new QFrame(parent))
    {
        auto& frame = static_cast<QFrame&>(Widget());
        const DWORD kind = request.m_Style & SS_TYPEMASK;
        frame.setFrameShadow(QFrame::Sunken);
        frame.setFrameShape(kind == SS_ETCHEDHORZ   ? QFrame::HLine
                            : kind == SS_ETCHEDVERT ? QFrame::VLine
                                                    : QFrame::Box);
        frame.setAttribute(Qt::WA_TransparentForMouseEvents);
    }
};

QWidget* MakeLabel(DWORD style, QWidget* parent)
{
    if (style & SS_PATHELLIPSIS)
        return new CShorteningLabel(Qt::ElideMiddle, parent);
    if (style & SS_ENDELLIPSIS)
        return new CShorteningLabel(Qt::ElideRight, parent);
    return new QLabel(parent);
}

Qt::Alignment ToAlignment(DWORD style)
{
    const DWORD kind = style & SS_TYPEMASK;
    const Qt::Alignment across = kind == SS_CENTER  ? Qt::AlignHCenter
                                 : kind == SS_RIGHT ? Qt::AlignRight
                                                    : Qt::AlignLeft;
    if (!(style & SS_CENTERIMAGE))
        return across | Qt::AlignTop;
    const bool isPicture = kind == SS_BITMAP || kind == SS_ICON;
    return (isPicture ? Qt::AlignHCenter : across) | Qt::AlignVCenter;
}

/// Without the marks of letters: "&File" is shown as "File", "A && B" as "A & B".
QString WithoutMarks(const QString& text)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i)
    {
        if (text[i] == u'&' && ++i == text.size())
            break;
        result += text[i];
    }
    return result;
}

} // namespace

std::unique_ptr<CQtWindowPeer> MakeStaticPeer(const CWindowRequest& request, QWidget* parent)
{
    if (IsEtched(request.m_Style & SS_TYPEMASK))
        return std::make_unique<CEtchedPeer>(request, parent);
    return std::make_unique<CStaticPeer>(request, parent);
}

CStaticPeer::CStaticPeer(const CWindowRequest& request, QWidget* parent)
    : CQtWindowPeer(request, MakeLabel(request.m_Style, parent))
{
    const DWORD style = request.m_Style;
    const DWORD kind = GetKind();
    QLabel& label = Label();
    label.setTextFormat(Qt::PlainText);
    label.setAlignment(ToAlignment(style));
    label.setWordWrap(kind != SS_LEFTNOWORDWRAP && !(style & SS_CENTERIMAGE));
    if (style & SS_SUNKEN)
        label.setFrameStyle(QFrame::Panel | QFrame::Sunken);
    if (!(style & SS_NOTIFY))
        label.setAttribute(Qt::WA_TransparentForMouseEvents);
    ShowText();
}

void CStaticPeer::SetHandle(HWND window)
{
    CQtWindowPeer::SetHandle(window);
    LoadPicture();
}

bool CStaticPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message)
    {
    case STM_SETIMAGE:
        return SetImage(wParam, lParam, result);
    case STM_GETIMAGE:
        result = m_Image;
        return true;
    case WM_GETDLGCODE:
        result = DLGC_STATIC;
        return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
        if (GetStyle() & SS_NOTIFY && IsOpen())
            NotifyParent(message == WM_LBUTTONDOWN ? STN_CLICKED : STN_DBLCLK);
        return true;
    default:
        return CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
    }
}

void CStaticPeer::SetText(const CString& text)
{
    CQtWindowPeer::SetText(text);
    ShowText();
}

void CStaticPeer::SetBuddy(QWidget& control)
{
    m_Buddy = &control;
    if (!(GetStyle() & SS_NOPREFIX))
        Label().setBuddy(&control);
    ShowText();
}

DWORD CStaticPeer::GetKind() const
{
    return GetStyle() & SS_TYPEMASK;
}

void CStaticPeer::ShowText()
{
    const DWORD kind = GetKind();
    if (kind == SS_BITMAP || kind == SS_ICON)
        return;
    const bool hasMarks = !(GetStyle() & SS_NOPREFIX);
    // Only a label that has a control draws the letter's line itself.
    const QString text = ToQString(GetText());
    const QString plain = hasMarks ? WithoutMarks(text) : text;
    Label().setText(Label().buddy() ? text : plain);
    if (m_Buddy)
        m_Buddy->setAccessibleName(plain);
}

bool CStaticPeer::SetImage(WPARAM kind, LPARAM image, LRESULT& before)
{
    const DWORD needed = kind == IMAGE_BITMAP ? SS_BITMAP : SS_ICON;
    if (GetKind() != needed)
        return true; // a label shows no picture
    ShowPicture(CopyPicture(reinterpret_cast<HBITMAP>(image)));
    before = std::exchange(m_Image, image);
    return true;
}

/// Templates name a picture as "#" and its id.
void CStaticPeer::LoadPicture()
{
    const CString name = GetText();
    const DWORD kind = GetKind();
    if ((kind != SS_BITMAP && kind != SS_ICON) || name.IsEmpty() || name[0] != u'#')
        return;
    bool isNumber = false;
    const UINT id = ToQString(name.Mid(1)).toUInt(&isNumber);
    CBitmap bitmap;
    if (isNumber && bitmap.LoadBitmap(id))
        ShowPicture(CopyPicture(bitmap));
}

void CStaticPeer::ShowPicture(const QPixmap& picture)
{
    Label().setPixmap(picture);
    if (picture.isNull() || GetStyle() & SS_CENTERIMAGE)
        return;
    const CRect place = GetPlace();
    Move({place.TopLeft(), CSize(picture.width(), picture.height())});
}

void TakeLabelBefore(const CQtWindowPeer& control)
{
    const CWnd* window = CWnd::FromHandle(control.GetHandle());
    const CWnd* before = window ? window->GetWindow(GW_HWNDPREV) : nullptr;
    if (!before)
        return;
    auto* label = dynamic_cast<CStaticPeer*>(PeerOf(before->GetSafeHwnd()));
    if (label && !label->GetText().IsEmpty())
        label->SetBuddy(control.Widget());
}

} // namespace utility
