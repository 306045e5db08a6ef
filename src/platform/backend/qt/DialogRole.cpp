#include "platform/backend/qt/DialogRole.h"

#include "platform/backend/qt/QtWindowPeer.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace utility
{

namespace
{

/// Null leaves the widget to the library's own answer.
QAccessibleInterface* MakeDialogInterface(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || !widget->isWindow())
        return nullptr;
    const CQtWindowPeer* peer = PeerOf(HandleOf(widget));
    const bool isDialog = peer && peer->GetClassName() == u"#32770";
    return isDialog ? new QAccessibleWidget(widget, QAccessible::Dialog) : nullptr;
}

} // namespace

void InstallDialogRole()
{
    QAccessible::installFactory(MakeDialogInterface); // once more changes nothing
}

} // namespace utility
