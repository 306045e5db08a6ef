#include "support/ui/WindowCensus.h"

#include <QApplication>
#include <QWidget>

namespace utility
{

void CWindowCensus::OnTestEnd(const testing::TestInfo&)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const QWidget* widget : QApplication::topLevelWidgets())
    {
        // The library keeps a tip's and a menu's window for the next one.
        if (widget->isVisible() || widget->property("utility.window").isValid())
            ADD_FAILURE() << "a window is left: " << widget->metaObject()->className() << " \""
                          << widget->windowTitle().toStdString() << '"';
    }
}

} // namespace utility
