#include "platform/backend/qt/QtWindowPeer.h"

#include "platform/backend/qt/Fonts.h"
#include "platform/backend/qt/Guard.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/drawing/Font.h"

#include <QApplication>
#include <QVariant>

namespace utility
{

namespace
{

constexpr const char* HANDLE_PROPERTY = "utility.window";
constexpr const char* BARRED_PROPERTY = "utility.barred";

} // namespace

HWND HandleOf(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget())
    {
        const QVariant handle = widget->property(HANDLE_PROPERTY);
        if (handle.isValid())
            return reinterpret_cast<HWND>(handle.value<quintptr>());
        if (widget->isWindow())
            return nullptr;
    }
    return nullptr;
}

CQtWindowPeer* PeerOf(HWND window)
{
    return dynamic_cast<CQtWindowPeer*>(CWnd::PeerOf(window));
}

QWidget* WidgetOf(const CWnd& window)
{
    const CQtWindowPeer* peer = PeerOf(window.GetSafeHwnd());
    return peer ? &peer->Widget() : nullptr;
}

bool IsBarred(const QWidget& widget)
{
    return widget.window()->property(BARRED_PROPERTY).toBool();
}

CQtWindowPeer::CQtWindowPeer(const CWindowRequest& request, QWidget* widget)
    : m_Request(request),
      m_Widget(widget),
      m_Bridge(*this)
{
}

CQtWindowPeer::~CQtWindowPeer()
{
    CQtWindowPeer::Close();
}

void CQtWindowPeer::SetHandle(HWND window)
{
    m_Window = window;
    m_Widget->setProperty(HANDLE_PROPERTY, QVariant::fromValue(reinterpret_cast<quintptr>(window)));
    if (IsChild())
        m_Widget->lower(); // the first child is the topmost one
    if (!m_Request.m_Place.IsRectNull())
        m_Widget->setGeometry(ToQRect(m_Request.m_Place));
    m_ToldSize = GetClientSize();
    m_ToldPlace = GetPlace().TopLeft();
    SetText(m_Request.m_Title);
    Enable((m_Request.m_Style & WS_DISABLED) == 0);
    m_Bridge.Watch(*m_Widget);
    if (m_Request.m_Style & WS_VISIBLE)
        Show(true);
}

void CQtWindowPeer::Close()
{
    if (!std::exchange(m_IsOpen, false) || !m_Widget)
        return;
    m_Widget->hide();
    m_Widget->setProperty(HANDLE_PROPERTY, QVariant());
    m_Widget->deleteLater(); // one of its own events may be under way
}

bool CQtWindowPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM, LRESULT& result)
{
    switch (message)
    {
    case WM_SETFONT:
        m_Font = wParam;
        ShowFont();
        return true;
    case WM_GETFONT:
        result = static_cast<LRESULT>(m_Font);
        return true;
    default:
        return m_Bridge.PassOn(message);
    }
}

void CQtWindowPeer::ShowFont()
{
    const auto* font = reinterpret_cast<const CFont*>(m_Font);
    LOGFONT description;
    const bool isGiven = font && font->GetLogFont(description);
    m_Widget->setFont(isGiven ? ToQFont(description, QApplication::font()) : QFont());
}

/// Controls without a font of their own have that of the dialog around them.
void CQtWindowPeer::SetFont(WPARAM font)
{
    m_Font = font;
    const LOGFONT* wanted = CFont::Find(reinterpret_cast<HFONT>(font));
    m_Widget->setFont(wanted ? ToQFont(*wanted, QApplication::font()) : QFont());
}

LRESULT CQtWindowPeer::Send(UINT message, WPARAM wParam, LPARAM lParam) const
{
    LRESULT result = 0;
    CallGuarded(
        [&]
        {
            if (CWnd* window = CWnd::FromHandle(m_Window))
                result = window->SendMessage(message, wParam, lParam);
        });
    return result;
}

void CQtWindowPeer::NotifyParent(int code) const
{
    if (const CQtWindowPeer* parent = PeerOf(GetParent()))
        parent->Send(WM_COMMAND, MAKEWPARAM(static_cast<int>(GetId()), code),
                     reinterpret_cast<LPARAM>(m_Window));
}

LRESULT CQtWindowPeer::NotifyParent(NMHDR& note) const
{
    note.hwndFrom = m_Window;
    note.idFrom = GetId();
    const CQtWindowPeer* parent = PeerOf(GetParent());
    return parent ? parent->Send(WM_NOTIFY, note.idFrom, reinterpret_cast<LPARAM>(&note)) : 0;
}

void CQtWindowPeer::TellSize()
{
    constexpr WPARAM KINDS[] = {SIZE_RESTORED, SIZE_MINIMIZED, SIZE_MAXIMIZED};
    const CSize size = GetClientSize();
    const EWindowState state = GetState();
    if (state == EWindowState::Normal)
        m_NormalFrame = GetFrame();
    if (size == m_ToldSize && state == m_ToldState)
        return;
    m_ToldSize = size;
    m_ToldState = state;
    Send(WM_SIZE, KINDS[static_cast<int>(state)], MAKELPARAM(size.cx, size.cy));
}

void CQtWindowPeer::TellMove()
{
    const CPoint place = GetPlace().TopLeft();
    if (place == m_ToldPlace)
        return;
    m_ToldPlace = place;
    Send(WM_MOVE, 0, MAKELPARAM(place.x, place.y));
}

DWORD CQtWindowPeer::GetStyle() const
{
    const DWORD others = m_Request.m_Style & ~(WS_VISIBLE | WS_DISABLED);
    return others | (IsVisible() ? WS_VISIBLE : 0) | (m_IsEnabled ? 0 : WS_DISABLED);
}

void CQtWindowPeer::SetText(const CString& text)
{
    m_Request.m_Title = text;
    if (!IsChild())
        m_Widget->setWindowTitle(ToQString(text));
}

void CQtWindowPeer::SetAccessibleName(const CString& name)
{
    m_Widget->setAccessibleName(ToQString(name));
}

CString CQtWindowPeer::GetAccessibleName() const
{
    return ToCString(m_Widget->accessibleName());
}

void CQtWindowPeer::Show(bool visible)
{
    if (visible && !IsChild())
        LimitSize();
    m_Widget->setVisible(visible);
}

bool CQtWindowPeer::IsVisible() const
{
    return m_Widget && !m_Widget->isHidden();
}

void CQtWindowPeer::SetState(EWindowState state)
{
    constexpr Qt::WindowState STATES[] = {Qt::WindowNoState, Qt::WindowMinimized,
                                          Qt::WindowMaximized};
    if (GetState() == EWindowState::Normal)
        m_NormalFrame = GetFrame();
    if (!IsChild())
        m_Widget->setWindowState(STATES[static_cast<int>(state)]);
}

EWindowState CQtWindowPeer::GetState() const
{
    if (!m_Widget || IsChild())
        return EWindowState::Normal;
    if (m_Widget->isMinimized())
        return EWindowState::Minimised;
    return m_Widget->isMaximized() ? EWindowState::Maximised : EWindowState::Normal;
}

void CQtWindowPeer::BringToTop()
{
    m_Widget->raise();
    if (!IsChild())
        m_Widget->activateWindow();
}

/// A top-level window keeps its looks, and what stands over it stays usable: only the user's keys
/// and pointer are kept away.
void CQtWindowPeer::Enable(bool enabled)
{
    m_IsEnabled = enabled;
    if (IsChild())
        m_Widget->setEnabled(enabled);
    else
        m_Widget->setProperty(BARRED_PROPERTY, !enabled);
}

void CQtWindowPeer::TakeFocus()
{
    m_Widget->setFocus(Qt::OtherFocusReason);
}

void CQtWindowPeer::SetCapture(bool captured)
{
    if (captured)
        m_Widget->grabMouse();
    else
        m_Widget->releaseMouse();
}

void CQtWindowPeer::Invalidate(const CRect* part)
{
    if (part)
        m_Widget->update(ToQRect(*part));
    else
        m_Widget->update();
}

void CQtWindowPeer::Update()
{
    m_Widget->repaint();
}

void CQtWindowPeer::SetRedraw(bool on)
{
    m_Widget->setUpdatesEnabled(on);
}

} // namespace utility
