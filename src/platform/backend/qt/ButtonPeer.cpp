#include "platform/backend/qt/ButtonPeer.h"

#include "platform/backend/qt/ControlMakers.h"
#include "platform/backend/qt/Pictures.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Button.h"
#include "platform/ui/drawing/ImageTypes.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include <utility>

namespace utility
{

namespace
{

/// A mark whose next state is its owner's affair.
template <typename TButton>
class TOwnStateButton final : public TButton
{
public:
    using TButton::TButton;

protected:
    void nextCheckState() override {}
};

/// The letter of its title goes to the control behind it, as that of a label does.
class CGroupFrame final : public QGroupBox
{
public:
    CGroupFrame(const CGroupBoxPeer& peer, QWidget* parent) : QGroupBox(parent), m_Peer(peer) {}

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::Shortcut)
            return QGroupBox::event(event);
        m_Peer.FocusNext();
        return true;
    }

private:
    const CGroupBoxPeer& m_Peer;
};

bool HasMark(DWORD kind)
{
    return kind != BS_PUSHBUTTON && kind != BS_DEFPUSHBUTTON && kind != BS_OWNERDRAW;
}

bool IsRadio(DWORD kind)
{
    return kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON;
}

QWidget* MakeButton(DWORD style, QWidget* parent)
{
    switch (style & BS_TYPEMASK)
    {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
        if (style & BS_PUSHLIKE)
            break;
        return new TOwnStateButton<QCheckBox>(parent);
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        if (style & BS_PUSHLIKE)
            break;
        return new TOwnStateButton<QRadioButton>(parent);
    default:
        break;
    }
    return new TOwnStateButton<QPushButton>(parent);
}

} // namespace

std::unique_ptr<CQtWindowPeer> MakeButtonPeer(const CWindowRequest& request, QWidget* parent)
{
    if ((request.m_Style & BS_TYPEMASK) == BS_GROUPBOX)
        return std::make_unique<CGroupBoxPeer>(request, parent);
    return std::make_unique<CButtonPeer>(request, parent);
}

CButtonPeer::CButtonPeer(const CWindowRequest& request, QWidget* parent)
    : CQtWindowPeer(request, MakeButton(request.m_Style, parent))
{
    QAbstractButton& button = Button();
    button.setText(ToQString(request.m_Title));
    if (request.m_Style & BS_LEFTTEXT)
        button.setLayoutDirection(button.isLeftToRight() ? Qt::RightToLeft : Qt::LeftToRight);
    ShowKind(GetKind());
    QObject::connect(&button, &QAbstractButton::clicked, &Bridge(), [this] { OnClick(); });
}

bool CButtonPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    switch (message)
    {
    case BM_GETCHECK:
        result = m_Check;
        return true;
    case BM_SETCHECK:
        SetCheck(static_cast<int>(wParam));
        return true;
    case BM_CLICK:
        if (IsEnabled())
            Button().click();
        return true;
    case BM_SETSTYLE:
        SetStyle((GetStyle() & ~BS_TYPEMASK) | (static_cast<DWORD>(wParam) & BS_TYPEMASK));
        ShowKind(GetKind());
        return true;
    case BM_SETIMAGE:
        result = SetImage(wParam, lParam);
        return true;
    case BM_GETIMAGE:
        result = m_Image;
        return true;
    case WM_SETFOCUS:
        if (GetStyle() & BS_NOTIFY)
            NotifyParent(BN_SETFOCUS);
        return true;
    case WM_KILLFOCUS:
        if (GetStyle() & BS_NOTIFY)
            NotifyParent(BN_KILLFOCUS);
        return true;
    case WM_GETDLGCODE:
        result = GetDialogCode();
        return true;
    default:
        return CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
    }
}

void CButtonPeer::SetText(const CString& text)
{
    CQtWindowPeer::SetText(text);
    Button().setText(ToQString(text));
}

QAbstractButton& CButtonPeer::Button() const
{
    return static_cast<QAbstractButton&>(Widget());
}

DWORD CButtonPeer::GetKind() const
{
    return GetStyle() & BS_TYPEMASK;
}

void CButtonPeer::SetCheck(int check)
{
    const DWORD kind = GetKind();
    const bool hasThird = kind == BS_3STATE || kind == BS_AUTO3STATE;
    if (!HasMark(kind) || check < BST_UNCHECKED || check > BST_INDETERMINATE)
        return;
    m_Check = check == BST_INDETERMINATE && !hasThird ? BST_CHECKED : check;
    if (auto* box = dynamic_cast<QCheckBox*>(&Button()))
    {
        constexpr Qt::CheckState STATES[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
        box->setCheckState(STATES[m_Check]);
    }
    else
    {
        // Groups are those of the window's own order, not all buttons of the parent.
        Button().setAutoExclusive(false);
        Button().setChecked(m_Check != BST_UNCHECKED);
        Button().setAutoExclusive(IsRadio(kind));
    }
}

void CButtonPeer::ShowKind(DWORD kind)
{
    Button().setCheckable(HasMark(kind));
    Button().setAutoExclusive(IsRadio(kind)); // what assistive tools know radio buttons by
    if (auto* box = dynamic_cast<QCheckBox*>(&Button()))
        box->setTristate(kind == BS_3STATE || kind == BS_AUTO3STATE);
    if (auto* button = dynamic_cast<QPushButton*>(&Button()))
    {
        button->setAutoDefault(false);
        button->setDefault(kind == BS_DEFPUSHBUTTON);
    }
}

LRESULT CButtonPeer::SetImage(WPARAM kind, LPARAM image)
{
    if (kind != IMAGE_BITMAP && kind != IMAGE_ICON)
        return 0;
    const QPixmap picture = CopyPicture(reinterpret_cast<HBITMAP>(image));
    Button().setIcon(picture);
    Button().setIconSize(picture.size());
    // The text stays the name that assistive tools read.
    Button().setAccessibleName(ToQString(GetText()).remove(u'&'));
    Button().setText(picture.isNull() ? ToQString(GetText()) : QString());
    return std::exchange(m_Image, image);
}

LRESULT CButtonPeer::GetDialogCode() const
{
    switch (GetKind())
    {
    case BS_PUSHBUTTON:
        return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
    case BS_DEFPUSHBUTTON:
        return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return DLGC_BUTTON | DLGC_RADIOBUTTON;
    default:
        return DLGC_BUTTON;
    }
}

void CButtonPeer::OnClick()
{
    switch (GetKind())
    {
    case BS_AUTOCHECKBOX:
        SetCheck(m_Check == BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED);
        break;
    case BS_AUTO3STATE:
        SetCheck((m_Check + 1) % 3);
        break;
    case BS_AUTORADIOBUTTON:
        UncheckGroup();
        SetCheck(BST_CHECKED);
        break;
    default:
        break;
    }
    NotifyParent(BN_CLICKED);
}

/// Takes the mark from the other radio buttons of this one's group.
void CButtonPeer::UncheckGroup()
{
    const CWnd* const self = CWnd::FromHandle(GetHandle());
    if (!self)
        return;
    const CWnd* first = self;
    while (!(first->GetStyle() & WS_GROUP))
    {
        const CWnd* before = first->GetWindow(GW_HWNDPREV);
        if (!before)
            break;
        first = before;
    }
    for (const CWnd* window = first;
         window && (window == first || !(window->GetStyle() & WS_GROUP));
         window = window->GetWindow(GW_HWNDNEXT))
    {
        if (window != self && window->SendMessage(WM_GETDLGCODE) & DLGC_RADIOBUTTON)
            window->SendMessage(BM_SETCHECK, BST_UNCHECKED);
    }
}

CGroupBoxPeer::CGroupBoxPeer(const CWindowRequest& request, QWidget* parent)
    : CQtWindowPeer(request, new CGroupFrame(*this, parent))
{
    // The controls within are its siblings: they get the pointer.
    Widget().setAttribute(Qt::WA_TransparentForMouseEvents);
    Widget().setFocusPolicy(Qt::NoFocus);
}

bool CGroupBoxPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    if (message == WM_GETDLGCODE)
    {
        result = DLGC_STATIC;
        return true;
    }
    return CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
}

/// To the first control behind the frame that takes the focus.
void CGroupBoxPeer::FocusNext() const
{
    CWnd* window = CWnd::FromHandle(GetHandle());
    while (window)
    {
        window = window->GetWindow(GW_HWNDNEXT);
        const QWidget* widget = window ? WidgetOf(*window) : nullptr;
        if (!widget || widget->focusPolicy() == Qt::NoFocus || !widget->isEnabled() ||
            widget->isHidden())
            continue;
        window->SetFocus();
        return;
    }
}

void CGroupBoxPeer::SetText(const CString& text)
{
    CQtWindowPeer::SetText(text);
    static_cast<QGroupBox&>(Widget()).setTitle(ToQString(text));
}

} // namespace utility
