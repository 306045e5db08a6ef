#include "platform/backend/qt/WidgetTable.h"

#include "platform/backend/qt/ControlMakers.h"
#include "platform/backend/qt/PlainPeer.h"

namespace utility
{

namespace
{

struct CWidgetRow
{
    const char16_t* m_ClassName;
    PeerMaker m_Make;
};

constexpr CWidgetRow WIDGETS[] = {
    {u"#32770", MakePlainPeer}, // dialogs
    {u"EDIT", MakeEditPeer},
    {u"Button", MakeButtonPeer},
    {u"Static", MakeStaticPeer},
    {u"ListBox", MakeListBoxPeer},
    {u"COMBOBOX", MakeComboBoxPeer},
    {u"SysTreeView32", MakeTreePeer},
    {u"SysTabControl32", MakeTabPeer},
    {u"tooltips_class32", MakeToolTipPeer},
    {u"msctls_updown32", MakeSpinPeer},
};

} // namespace

PeerMaker FindPeerMaker(const CString& className)
{
    for (const CWidgetRow& row : WIDGETS)
    {
        if (className.CompareNoCase(row.m_ClassName) == 0)
            return row.m_Make;
    }
    return MakePlainPeer;
}

std::unique_ptr<IWindowPeer> CQtWindowPeerFactory::Make(const CWindowRequest& request)
{
    const CQtWindowPeer* parent = PeerOf(request.m_Parent);
    return FindPeerMaker(request.m_ClassName)(request, parent ? &parent->Widget() : nullptr);
}

HWND CQtWindowPeerFactory::GetFocus() const
{
    return HandleOf(QApplication::focusWidget());
}

HWND CQtWindowPeerFactory::GetActive() const
{
    return HandleOf(QApplication::activeWindow());
}

HWND CQtWindowPeerFactory::GetCapture() const
{
    return HandleOf(QWidget::mouseGrabber());
}

} // namespace utility
