#include "dialogs/controls/BaseTasksPane.h"

#include "dialogs/PeersTest.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"

namespace utility
{
namespace
{

constexpr UINT OPEN_COMMAND = 101;
constexpr UINT SAVE_COMMAND = 102;
constexpr UINT HELP_COMMAND = 103;

class CCommandParent : public CWnd
{
public:
    std::vector<UINT> m_Commands;

protected:
    bool OnCommand(WPARAM wParam, LPARAM) override
    {
        m_Commands.push_back(LOWORD(wParam));
        return true;
    }
};

// "Design" at 8 with Open at 32 and Save, disabled, at 52; "Help" at 80 with Contents at 104.
class BaseTasksPaneTest : public CPeersTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Parent.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 300, 300}, nullptr));
        ASSERT_TRUE(m_Pane.Create(u"Tasks", WS_VISIBLE, {0, 0, 150, 200}, &m_Parent, 1));
        const int design = m_Pane.AddGroup(u"Design");
        EXPECT_TRUE(m_Pane.AddTask(design, u"Open", OPEN_COMMAND));
        EXPECT_TRUE(m_Pane.AddTask(design, u"Save", SAVE_COMMAND));
        EXPECT_TRUE(m_Pane.AddTask(m_Pane.AddGroup(u"Help"), u"Contents", HELP_COMMAND));
        m_Pane.EnableTask(SAVE_COMMAND, false);
    }
    void Click(int y)
    {
        m_Pane.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, y));
        m_Pane.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(50, y));
    }
    void Press(UINT key) { m_Pane.SendMessage(WM_KEYDOWN, key); }

    CCommandParent m_Parent;
    CBaseTasksPane m_Pane;
};

INSTANTIATE_TEST_SUITE_P(Peers, BaseTasksPaneTest, AllPeers(), NamePeers);

TEST_P(BaseTasksPaneTest, ClicksRunTasksAndOpenAndCloseGroups)
{
    Click(40);
    Click(60); // disabled
    Click(20);
    EXPECT_FALSE(m_Pane.IsGroupOpen(0));
    Click(70); // Contents has moved up
    Click(20);
    EXPECT_TRUE(m_Pane.IsGroupOpen(0));

    EXPECT_EQ(m_Parent.m_Commands, (std::vector<UINT>{OPEN_COMMAND, HELP_COMMAND}));
}

TEST_P(BaseTasksPaneTest, AClickThatEndsElsewhereRunsNothing)
{
    m_Pane.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 40));
    m_Pane.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(50, 110));
    m_Pane.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(50, 40));

    EXPECT_TRUE(m_Parent.m_Commands.empty());
}

TEST_P(BaseTasksPaneTest, KeysGoFromLineToLineAndTheTextTellsWhere)
{
    struct CCase
    {
        UINT m_Key;
        const char16_t* m_Text;
    };
    const CCase cases[] = {{VK_DOWN, u"Tasks: Open"},    {VK_DOWN, u"Tasks: Help"},
                           {VK_END, u"Tasks: Contents"}, {VK_DOWN, u"Tasks: Contents"},
                           {VK_HOME, u"Tasks: Design"},  {VK_UP, u"Tasks: Design"}};
    for (const CCase& row : cases)
    {
        Press(row.m_Key);
        EXPECT_EQ(m_Pane.GetWindowText(), row.m_Text);
    }

    Press(VK_LEFT);
    EXPECT_FALSE(m_Pane.IsGroupOpen(0));
    Press(VK_SPACE);
    EXPECT_TRUE(m_Pane.IsGroupOpen(0));
    Press(VK_END);
    Press(VK_RETURN);
    EXPECT_EQ(m_Parent.m_Commands, (std::vector<UINT>{HELP_COMMAND}));
}

TEST_P(BaseTasksPaneTest, ScrollsWhereThereIsNoRoomForAllLines)
{
    m_Pane.MoveWindow(CRect(0, 0, 150, 60));
    m_Pane.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, -120 * 100), 0);
    Click(60 - 8 - 10); // the last line, above the gap at the end
    m_Pane.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    Press(VK_HOME);
    Click(40);

    EXPECT_EQ(m_Parent.m_Commands, (std::vector<UINT>{HELP_COMMAND, OPEN_COMMAND}));
}

TEST_P(BaseTasksPaneTest, AnEmptyPaneAndMissingGroupsAreHarmless)
{
    m_Pane.RemoveAll();
    Press(VK_DOWN);
    Click(20);

    EXPECT_FALSE(m_Pane.AddTask(0, u"Nowhere", OPEN_COMMAND));
    EXPECT_FALSE(m_Pane.IsGroupOpen(0));
    EXPECT_TRUE(m_Parent.m_Commands.empty());
}

} // namespace
} // namespace utility
