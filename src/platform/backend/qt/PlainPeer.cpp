#include "platform/backend/qt/PlainPeer.h"

#include "platform/system/window/MessageScope.h"
#include "platform/system/window/WindowMessages.h"

#include <QPaintEvent>

namespace utility
{

namespace
{

/// Paints by WM_PAINT; what the handler leaves alone shows the background.
class CPlainWidget final : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        const CMessageScope scope;
        if (const CQtWindowPeer* peer = PeerOf(HandleOf(this)))
            peer->Send(WM_PAINT);
    }
};

} // namespace

Qt::WindowFlags WindowFlagsOf(const CWindowRequest& request)
{
    const DWORD style = request.m_Style;
    if (style & WS_CHILD)
        return Qt::Widget;
    Qt::WindowFlags flags = Qt::Window;
    if (request.m_ExStyle & WS_EX_TOOLWINDOW)
        flags = Qt::Tool;
    else if (request.m_Parent)
        flags = Qt::Dialog;
    if (request.m_ExStyle & WS_EX_TOPMOST)
        flags |= Qt::WindowStaysOnTopHint;
    if ((style & WS_POPUP) && (style & WS_CAPTION) != WS_CAPTION)
        return flags | Qt::FramelessWindowHint;
    if (!(style & WS_SYSMENU))
        return flags;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
             Qt::WindowCloseButtonHint;
    if (style & WS_MINIMIZEBOX)
        flags |= Qt::WindowMinimizeButtonHint;
    if (style & WS_MAXIMIZEBOX)
        flags |= Qt::WindowMaximizeButtonHint;
    return flags;
}

std::unique_ptr<CQtWindowPeer> MakePlainPeer(const CWindowRequest& request, QWidget* parent)
{
    return std::make_unique<CQtWindowPeer>(request,
                                           new CPlainWidget(parent, WindowFlagsOf(request)));
}

} // namespace utility
