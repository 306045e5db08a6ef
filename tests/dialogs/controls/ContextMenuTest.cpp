#include "dialogs/controls/ContextMenu.h"

#include "frame/MacroOps.h"
#include "platform/ui/controls/ControlTest.h"

#include <QMenu>
#include <QTimer>

namespace utility
{
namespace
{

/// What the macro recorder is told.
struct CRecorder
{
    std::vector<UINT> m_Commands;
    std::vector<bool> m_Suspensions;
};

CRecorder& Recorder()
{
    static CRecorder recorder;
    return recorder;
}

bool RecordCommand(UINT id)
{
    Recorder().m_Commands.push_back(id);
    return true;
}

bool SuspendRecording(bool suspended)
{
    Recorder().m_Suspensions.push_back(suspended);
    return true;
}

class ContextMenuTest : public ControlTest
{
protected:
    ContextMenuTest()
    {
        Recorder() = {};
        CMacroOps::InitFunctions(nullptr, nullptr, nullptr, nullptr, &RecordCommand, nullptr,
                                 nullptr, &SuspendRecording, nullptr);
        m_Menu.AddSeparator();
        m_Menu.AddCommand(201, u"&Open");
        m_Menu.AddSeparator();
        m_Menu.AddSeparator();
        m_Menu.AddCommand(202, u"&Delete", false);
        m_Menu.AddSeparator();
    }
    ~ContextMenuTest() override
    {
        CMacroOps::SetRecording(false);
        CMacroOps::SetReplaying(false);
    }

    /// Presses a key in the menu that comes up next.
    void PressInMenu(Qt::Key key)
    {
        QTimer::singleShot(0, qApp,
                           [this, key]
                           {
                               QWidget* menu = QApplication::activePopupWidget();
                               ASSERT_NE(menu, nullptr);
                               m_Place = menu->pos();
                               QTest::keyClick(menu, key);
                           });
    }

    CContextMenu m_Menu;
    QPoint m_Place;
};

TEST_F(ContextMenuTest, PutsLinesBetweenCommandsAlone)
{
    ASSERT_EQ(m_Menu.GetMenuItemCount(), 3);
    EXPECT_EQ(CMenu::GetItems(m_Menu.GetSafeHmenu())[1].m_Flags, MF_SEPARATOR);
    EXPECT_EQ(CMenu::GetItems(m_Menu.GetSafeHmenu())[2].m_Flags, MF_GRAYED);
    EXPECT_FALSE(m_Menu.AddCommand(203, UINT{99999999})) << "no such text";

    CMenu below;
    EXPECT_FALSE(m_Menu.AddMenu(u"None", below));
    below.CreatePopupMenu();
    EXPECT_TRUE(m_Menu.AddMenu(u"More", below));
    EXPECT_EQ(below.GetSafeHmenu(), nullptr) << "it is the context menu's now";
}

TEST_F(ContextMenuTest, SendsTheCommandOfItsPlace)
{
    PressInMenu(Qt::Key_O);
    EXPECT_EQ(m_Menu.Show(&m_Parent, {120, 80}), 201U);
    EXPECT_EQ(m_Place, QPoint(120, 80));
    Settle();
    EXPECT_EQ(m_Parent.TakeCodes(), std::vector<int>{0});
    EXPECT_TRUE(Recorder().m_Commands.empty()) << "no macro is recorded";

    PressInMenu(Qt::Key_Escape);
    EXPECT_EQ(m_Menu.Show(&m_Parent, {120, 80}), 0U);
    Settle();
    EXPECT_EQ(m_Parent.TakeCodes(), std::vector<int>{});
    CContextMenu empty;
    EXPECT_EQ(empty.Show(&m_Parent, {0, 0}), 0U) << "an empty menu is not shown";
}

TEST_F(ContextMenuTest, IsKnownToMacros)
{
    CMacroOps::SetRecording(true);
    PressInMenu(Qt::Key_O);
    EXPECT_EQ(m_Menu.Show(&m_Parent, {120, 80}), 201U);
    EXPECT_EQ(Recorder().m_Commands, std::vector<UINT>{201});
    EXPECT_EQ(Recorder().m_Suspensions, (std::vector<bool>{true, false}));
    Settle();
    m_Parent.TakeCodes();

    CMacroOps::SetRecording(false);
    CMacroOps::SetReplaying(true);
    EXPECT_EQ(m_Menu.Show(&m_Parent, {120, 80}), 0U) << "the command comes by itself";
    Settle();
    EXPECT_EQ(m_Parent.TakeCodes(), std::vector<int>{});
}

} // namespace
} // namespace utility
