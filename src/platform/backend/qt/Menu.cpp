#include "platform/ui/controls/Menu.h"

#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"

#include <QApplication>
#include <QMenu>

#include <utility>
#include <vector>

namespace utility
{

namespace
{

void FillMenu(QMenu& menu, HMENU handle, std::vector<std::pair<QMenu*, HMENU>>& left)
{
    for (const CMenuItem& item : CMenu::GetItems(handle))
    {
        if (item.m_Flags & MF_SEPARATOR)
        {
            menu.addSeparator();
            continue;
        }
        QAction* action = nullptr;
        if (item.m_SubMenu)
        {
            QMenu* below = menu.addMenu(ToQString(item.m_Text));
            left.emplace_back(below, item.m_SubMenu);
            action = below->menuAction();
        }
        else
            action = menu.addAction(ToQString(item.m_Text));
        action->setData(item.m_Id);
        action->setEnabled(!(item.m_Flags & (MF_GRAYED | MF_DISABLED)));
        action->setCheckable((item.m_Flags & MF_CHECKED) != 0);
        action->setChecked((item.m_Flags & MF_CHECKED) != 0);
    }
}

} // namespace

int CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* parent)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()) || !m_Menu)
        return 0;
    QMenu menu(parent ? WidgetOf(*parent) : nullptr);
    std::vector<std::pair<QMenu*, HMENU>> left{{&menu, m_Menu}};
    while (!left.empty())
    {
        const auto [next, handle] = left.back();
        left.pop_back();
        FillMenu(*next, handle, left);
    }

    const HWND owner = parent ? parent->GetSafeHwnd() : nullptr;
    const int shift = flags & TPM_RIGHTALIGN ? menu.sizeHint().width() : 0;
    const QAction* chosen = menu.exec(QPoint(x - shift, y));
    const UINT id = chosen ? chosen->data().toUInt() : 0;
    const CWnd* target = CWnd::FromHandle(owner);
    if (id != 0 && target && !(flags & (TPM_NONOTIFY | TPM_RETURNCMD)))
        target->PostMessage(WM_COMMAND, id);
    return flags & TPM_RETURNCMD ? static_cast<int>(id) : TRUE;
}

} // namespace utility
