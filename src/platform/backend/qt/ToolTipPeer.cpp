#include "platform/backend/qt/ToolTipPeer.h"

#include "platform/backend/qt/ControlMakers.h"
#include "platform/backend/qt/MessageTable.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"

#include <QAbstractScrollArea>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace utility
{

std::unique_ptr<CQtWindowPeer> MakeToolTipPeer(const CWindowRequest& request, QWidget* parent)
{
    return std::make_unique<CToolTipPeer>(request, parent);
}

CToolTipPeer::CToolTipPeer(const CWindowRequest& request, QWidget* parent)
    : CQtWindowPeer(request, new QWidget(parent))
{
    Widget().hide();
}

CToolTipPeer::~CToolTipPeer()
{
    CQtWindowPeer::Close();
}

bool CToolTipPeer::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    using CPeer = CToolTipPeer;
    static constexpr TPeerRow<CPeer> ROWS[] = {
        {TTM_ACTIVATE, &CPeer::OnActivate},
        {TTM_ADDTOOL, &CPeer::OnAddTool},
        {TTM_DELTOOL, &CPeer::OnDelTool},
        {TTM_UPDATETIPTEXT, &CPeer::OnUpdateTipText},
        {TTM_GETTOOLCOUNT, &CPeer::OnGetToolCount},
        {TTM_SETMAXTIPWIDTH, &CPeer::OnSetMaxTipWidth},
        {TTM_GETMAXTIPWIDTH, &CPeer::OnGetMaxTipWidth},
    };
    return AnswerByTable(*this, ROWS, message, wParam, lParam, result) ||
           CQtWindowPeer::HandleMessage(message, wParam, lParam, result);
}

bool CToolTipPeer::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !m_IsActive || !IsOpen())
        return false;
    auto& widget = static_cast<QWidget&>(*watched);
    const auto& help = static_cast<QHelpEvent&>(*event);
    const CToolTipTool* tool = FindAt(HandleOf(&widget), help.pos());
    if (!tool)
        return false;
    const CRect place = tool->m_Place;
    const CString text = TextOf(*tool);
    if (text.IsEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help.globalPos(), Lay(text), &widget,
                           place.IsRectEmpty() ? widget.rect() : ToQRect(place));
    return true;
}

CToolTipTool* CToolTipPeer::Find(const CToolTipTool& tool)
{
    const auto isSame = [&](const CToolTipTool& other)
    {
        return other.m_Window == tool.m_Window && other.m_Id == tool.m_Id;
    };
    const auto found = std::find_if(m_Tools.begin(), m_Tools.end(), isSame);
    return found == m_Tools.end() ? nullptr : &*found;
}

const CToolTipTool* CToolTipPeer::FindAt(HWND window, const QPoint& place) const
{
    const auto isHere = [&](const CToolTipTool& tool)
    {
        return tool.m_Window == window &&
               (tool.m_Place.IsRectEmpty() || tool.m_Place.PtInRect(ToPoint(place)));
    };
    const auto found = std::find_if(m_Tools.begin(), m_Tools.end(), isHere);
    return found == m_Tools.end() ? nullptr : &*found;
}

CString CToolTipPeer::TextOf(const CToolTipTool& tool)
{
    if (!tool.m_Text.IsEmpty())
        return tool.m_Text;
    TOOLTIPTEXT note;
    note.hdr = {GetHandle(), tool.m_Id, TTN_NEEDTEXT};
    if (const CWnd* owner = CWnd::FromHandle(tool.m_Window))
        owner->SendMessage(WM_NOTIFY, tool.m_Id, reinterpret_cast<LPARAM>(&note));
    return note.m_Text;
}

/// Plain text with its own line ends, broken where it is wider than tips may be.
QString CToolTipPeer::Lay(const CString& text) const
{
    QString plain = ToQString(text).toHtmlEscaped();
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (m_MaxWidth < 0)
        return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(plain.replace(u'\n', u' '));
    const QFontMetrics metrics(QToolTip::font());
    const bool isWide =
        metrics.boundingRect(QRect(0, 0, 1 << 24, 1 << 24), 0, ToQString(text)).width() >
        m_MaxWidth;
    plain.replace(u'\n', QStringLiteral("<br>"));
    return isWide ? QStringLiteral("<table width='%1'><tr><td>%2</td></tr></table>")
                        .arg(m_MaxWidth)
                        .arg(plain)
                  : QStringLiteral("<p style='white-space:pre'>%1</p>").arg(plain);
}

void CToolTipPeer::Describe(const CToolTipTool& tool, const CString& text) const
{
    const CWnd* window = CWnd::FromHandle(tool.m_Window);
    if (window && tool.m_Place.IsRectEmpty())
        WidgetOf(*window)->setAccessibleDescription(ToQString(text));
}

LRESULT CToolTipPeer::OnActivate(WPARAM active, LPARAM)
{
    m_IsActive = active != 0;
    if (!m_IsActive)
        QToolTip::hideText();
    return 0;
}

LRESULT CToolTipPeer::OnAddTool(WPARAM, LPARAM tool)
{
    const auto& added = *reinterpret_cast<const CToolTipTool*>(tool);
    const CWnd* window = CWnd::FromHandle(added.m_Window);
    QWidget* widget = window ? WidgetOf(*window) : nullptr;
    if (!widget)
        return FALSE;
    if (CToolTipTool* found = Find(added))
        *found = added;
    else
        m_Tools.push_back(added);
    // Once each: what scrolls gets its pointer on its inner part.
    auto* area = dynamic_cast<QAbstractScrollArea*>(widget);
    QWidget* surface = area ? area->viewport() : widget;
    surface->installEventFilter(this);
    Describe(added, added.m_Text);
    return TRUE;
}

LRESULT CToolTipPeer::OnDelTool(WPARAM, LPARAM tool)
{
    const auto& gone = *reinterpret_cast<const CToolTipTool*>(tool);
    if (const CToolTipTool* found = Find(gone))
    {
        Describe(*found, CString());
        m_Tools.erase(m_Tools.begin() + (found - m_Tools.data()));
    }
    return 0;
}

LRESULT CToolTipPeer::OnUpdateTipText(WPARAM, LPARAM tool)
{
    const auto& change = *reinterpret_cast<const CToolTipTool*>(tool);
    if (CToolTipTool* found = Find(change))
    {
        found->m_Text = change.m_Text;
        Describe(*found, found->m_Text);
    }
    return 0;
}

LRESULT CToolTipPeer::OnGetToolCount(WPARAM, LPARAM)
{
    return static_cast<LRESULT>(m_Tools.size());
}

LRESULT CToolTipPeer::OnSetMaxTipWidth(WPARAM, LPARAM width)
{
    return std::exchange(m_MaxWidth, static_cast<int>(width));
}

LRESULT CToolTipPeer::OnGetMaxTipWidth(WPARAM, LPARAM)
{
    return m_MaxWidth;
}

} // namespace utility
