#include "support/ui/Widgets.h"

#include <QApplication>
#include <QVariant>
#include <QWidget>

#include <stdexcept>

namespace utility
{

QWidget& FindWidget(const CWnd& window)
{
    const auto handle = reinterpret_cast<quintptr>(window.GetSafeHwnd());
    for (QWidget* widget : QApplication::allWidgets())
    {
        const QVariant owner = widget->property("utility.window");
        if (owner.isValid() && owner.value<quintptr>() == handle)
            return *widget;
    }
    throw std::runtime_error("the window has no widget");
}

void Settle()
{
    constexpr int ROUNDS = 10; // more than any chain of events and what they post in turn
    for (int round = 0; round < ROUNDS; ++round)
    {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
}

} // namespace utility
