#include "platform/ui/ColourDialog.h"

#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/Wnd.h"

#include <QColorDialog>

namespace utility
{

int CColorDialog::DoModal()
{
    constexpr DWORD FOR_EVER = 0xFFFFFFFF;
    QWidget* parent = m_Parent ? WidgetOf(*m_Parent) : nullptr;
    QColorDialog dialog(ToQColor(m_Colour), parent ? parent->window() : nullptr);
    bool isOver = false;
    QObject::connect(&dialog, &QDialog::finished, &dialog,
                     [&]
                     {
                         isOver = true;
                         GetMessageLoop().WakeUp();
                     });
    dialog.setModal(true);
    dialog.show();
    GetMessageLoop().RunUntil([&] { return isOver; }, FOR_EVER);
    if (dialog.result() != QDialog::Accepted)
        return IDCANCEL;
    m_Colour = ToColour(dialog.currentColor());
    return IDOK;
}

} // namespace utility
