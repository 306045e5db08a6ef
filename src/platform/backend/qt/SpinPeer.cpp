#include "platform/backend/qt/SpinPeer.h"

#include "platform/backend/qt/ControlMakers.h"
#include "platform/backend/qt/MessageTable.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/SpinButton.h"

#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <charconv>
#include <utility>

namespace utility
{

namespace
{

/// Two arrows above each other, which go on stepping while they are held.
class CSpinArrows final : public QWidget
{
public:
    explicit CSpinArrows(QWidget* parent) : QWidget(parent)
    {
        auto* rows = new QVBoxLayout(this);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(0);
        for (QToolButton* button : {&m_Up, &m_Down})
        {
            button->setAutoRepeat(true);
            button->setFocusPolicy(Qt::NoFocus);
            button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
            rows->addWidget(button);
        }
        m_Up.setArrowType(Qt::UpArrow);
        m_Down.setArrowType(Qt::DownArrow);
    }

    QToolButton m_Up;
    QToolButton m_Down;
};

} // namespace

std::unique_ptr<CQtWindowPeer> MakeSpinPeer(const CWindowRequest& request, QWidget* parent)
{
    return std::make_unique<CSpinPeer>(request, parent);
}

CSpinPeer::CSpinPeer(const CWindowRequest& request, QWidget* parent)
    : CQtWindowPeer(request, new CSpinArrows(parent))
{
    auto& arrows = static_cast<CSpinArrows&>(Widget());
    QObject::connect(&arrows.m_Up, &QToolButton::clicked, &Bridge(), [this] { Step(1); });
    QObject::connect(&arrows.m_Down, &QToolButton::clicked, &Bridge(), [this] { Step(-1); });
}

bool CSpinPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    using CPeer = CSpinPeer;
    static constexpr TPeerRow<CPeer> ROWS[] = {
        {UDM_SETBUDDY, &CPeer::OnSetBuddy},   {UDM_GETBUDDY, &CPeer::OnGetBuddy},
        {UDM_SETRANGE32, &CPeer::OnSetRange}, {UDM_GETRANGE32, &CPeer::OnGetRange},
        {UDM_SETPOS32, &CPeer::OnSetPos},     {UDM_GETPOS32, &CPeer::OnGetPos},
        {WM_CREATE, &CPeer::OnCreate},
    };
    return AnswerByTable(*this, ROWS, message, wParam, lParam, result) ||
           CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
}

LRESULT CSpinPeer::OnCreate(WPARAM, LPARAM)
{
    const CWnd* window = CWnd::FromHandle(GetHandle());
    const CWnd* before = window ? window->GetWindow(GW_HWNDPREV) : nullptr;
    if (GetStyle() & UDS_AUTOBUDDY && before)
        m_Buddy = before->GetSafeHwnd();
    return 0;
}

LRESULT CSpinPeer::OnSetBuddy(WPARAM buddy, LPARAM)
{
    return reinterpret_cast<LRESULT>(std::exchange(m_Buddy, reinterpret_cast<HWND>(buddy)));
}

LRESULT CSpinPeer::OnGetBuddy(WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(m_Buddy);
}

LRESULT CSpinPeer::OnSetRange(WPARAM low, LPARAM high)
{
    m_Low = static_cast<int>(low);
    m_High = static_cast<int>(high);
    m_Position = Fit(m_Position);
    return 0;
}

LRESULT CSpinPeer::OnGetRange(WPARAM low, LPARAM high)
{
    *reinterpret_cast<int*>(low) = m_Low;
    *reinterpret_cast<int*>(high) = m_High;
    return 0;
}

LRESULT CSpinPeer::OnSetPos(WPARAM, LPARAM position)
{
    const int before = m_Position;
    GoTo(Fit(position));
    return before;
}

/// The number in the buddy's text counts more than the one kept.
LRESULT CSpinPeer::OnGetPos(WPARAM, LPARAM)
{
    const CWnd* buddy = CWnd::FromHandle(m_Buddy);
    if (!buddy || !(GetStyle() & UDS_SETBUDDYINT))
        return m_Position;
    const CString text = buddy->GetWindowText(); // the view does not keep it
    std::string digits;
    for (const char16_t unit : text.View())
        digits += unit < 0x80 ? static_cast<char>(unit) : '?';
    int number = 0;
    const char* end = digits.data() + digits.size();
    const auto [last, error] = std::from_chars(digits.data(), end, number);
    if (error == std::errc() && last == end)
        m_Position = Fit(number);
    return m_Position;
}

int CSpinPeer::Fit(std::int64_t position) const
{
    return static_cast<int>(
        std::clamp<std::int64_t>(position, std::min(m_Low, m_High), std::max(m_Low, m_High)));
}

void CSpinPeer::GoTo(int position)
{
    m_Position = position;
    CWnd* buddy = CWnd::FromHandle(m_Buddy);
    if (!buddy || !(GetStyle() & UDS_SETBUDDYINT))
        return;
    CString text;
    text.Format(u"%d", position);
    buddy->SetWindowText(text);
}

void CSpinPeer::Step(int steps)
{
    NMUPDOWN note;
    note.hdr.code = UDN_DELTAPOS;
    note.iPos = static_cast<int>(OnGetPos(0, 0));
    note.iDelta = m_Low <= m_High ? steps : -steps;
    if (NotifyParent(note.hdr) != 0 || !IsOpen())
        return;
    const std::int64_t wanted = std::int64_t{note.iPos} + note.iDelta;
    const int fitted = Fit(wanted);
    if (fitted == wanted || !(GetStyle() & UDS_WRAP))
        GoTo(fitted);
    else
        GoTo(fitted == m_High ? m_Low : m_High);
}

} // namespace utility
