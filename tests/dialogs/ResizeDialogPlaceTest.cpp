#include "dialogs/PeersTest.h"
#include "dialogs/ResizeDialog.h"
#include "dialogs/TestDialogs.h"
#include "dialogs/WindowPosition.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowRecords.h"
#include "settings/AppRegistry.h"

#include "support/SettingsSandbox.h"
#include "support/ui/Widgets.h"

#include <QTest>
#include <QWidget>

#include <climits>

namespace utility
{
namespace
{

constexpr char16_t KEY[] = u"Nets";

// Two lists, of which the second stands a bit to the right of the first.
class CNetsDialog : public CResizeDialog
{
public:
    CNetsDialog() : CResizeDialog(CTestDialogs::SPLIT_DIALOG, nullptr, true, true)
    {
        SetSizeRegistryKey(KEY);
    }
    bool Open() { return Create(CTestDialogs::SPLIT_DIALOG); }
    int HeightOf(UINT id) const
    {
        return GetDlgItem(static_cast<int>(id))->GetWindowRect().Height();
    }
    int GetFirstHeight() const { return HeightOf(CTestDialogs::FIRST_LIST); }
    int GetSecondHeight() const { return HeightOf(CTestDialogs::SECOND_LIST); }
};

class ResizeDialogPlaceTest : public CPeersTest
{
protected:
    ResizeDialogPlaceTest() : m_Stored(u"Nets\\Window") {}

    void Store(const CRect& place)
    {
        m_Stored.SetValue(u"Top", place.top);
        m_Stored.SetValue(u"Bottom", place.bottom);
        m_Stored.SetValue(u"Left", place.left);
        m_Stored.SetValue(u"Right", place.right);
    }
    CRect GetDefaultPlace() const
    {
        CNetsDialog dialog;
        dialog.SetSizeRegistryKey(u"Nobody");
        EXPECT_TRUE(dialog.Open());
        return dialog.GetWindowRect();
    }

    const CSettingsSandbox m_Settings;
    const CTestDialogs m_Templates;
    CAppRegistry m_Stored;
};

INSTANTIATE_TEST_SUITE_P(Peers, ResizeDialogPlaceTest, AllPeers(), NamePeers);

TEST_P(ResizeDialogPlaceTest, OpensWhereItWasClosed)
{
    CNetsDialog dialog;
    ASSERT_TRUE(dialog.Open());
    const CRect place({20, 30}, dialog.GetWindowRect().Size() + CSize(40, 50));
    dialog.MoveWindow(place);
    dialog.DestroyWindow();

    CNetsDialog again;
    ASSERT_TRUE(again.Open());
    EXPECT_EQ(again.GetWindowRect(), place);
}

TEST_P(ResizeDialogPlaceTest, KeepsItsDefaultPlaceWhereTheStoredOneIsNone)
{
    const CRect usual = GetDefaultPlace();
    struct CCase
    {
        const char* m_Name;
        CRect m_Place;
    };
    const CCase cases[] = {{"on a monitor since removed", {5000, 10, 5600, 500}},
                           {"partly beyond the screen", {-10, 10, 500, 500}},
                           {"upside down", {10, 500, 500, 10}},
                           {"the largest numbers", {INT_MIN, INT_MIN, INT_MAX, INT_MAX}}};
    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        Store(row.m_Place);
        CNetsDialog dialog;
        ASSERT_TRUE(dialog.Open());
        EXPECT_EQ(dialog.GetWindowRect(), usual);
    }

    Store({10, 10, 600, 500});
    m_Stored.SetValue(u"Bottom", u"a text");
    CNetsDialog dialog;
    ASSERT_TRUE(dialog.Open());
    EXPECT_EQ(dialog.GetWindowRect(), usual) << "a text where a number belongs";
}

TEST_P(ResizeDialogPlaceTest, WithoutAKeyNothingIsStored)
{
    {
        CResizeDialog dialog(CTestDialogs::SPLIT_DIALOG, nullptr, true, true);
        ASSERT_TRUE(dialog.Create(CTestDialogs::SPLIT_DIALOG));
        dialog.DestroyWindow();
    }

    EXPECT_FALSE(CAppRegistry(u"").KeyExists(u"Window"));
    EXPECT_FALSE(m_Stored.KeyExists());
}

TEST_P(ResizeDialogPlaceTest, ClosedMaximisedItOpensMaximisedAndKeepsItsSizeBefore)
{
    CNetsDialog dialog;
    ASSERT_TRUE(dialog.Open());
    dialog.ShowWindow(SW_SHOWNORMAL);
    const CRect place({20, 30}, dialog.GetWindowRect().Size() + CSize(40, 50));
    dialog.MoveWindow(place);
    dialog.SendMessage(WM_SYSCOMMAND, SC_MAXIMIZE);
    ASSERT_TRUE(dialog.IsZoomed());
    dialog.DestroyWindow();

    CNetsDialog again;
    ASSERT_TRUE(again.Open());
    EXPECT_TRUE(again.IsZoomed());
    WINDOWPLACEMENT placement;
    again.GetWindowPlacement(placement);
    EXPECT_EQ(placement.rcNormalPosition, place);
    again.DestroyWindow();
    CRect kept;
    EXPECT_TRUE(GetWindowPosition(u"Nets\\Window", kept));
    EXPECT_EQ(kept, place) << "closed again without having been restored";
}

TEST_P(ResizeDialogPlaceTest, GrowthGoesToTheFirstListAndAKeptHeightToTheSecond)
{
    CNetsDialog dialog;
    ASSERT_TRUE(dialog.Open());
    const int first = dialog.GetFirstHeight();
    const int second = dialog.GetSecondHeight();
    const CRect place = dialog.GetWindowRect();
    dialog.MoveWindow(CRect(place.left, place.top, place.right, place.bottom + 60));
    EXPECT_EQ(dialog.GetFirstHeight(), first + 60);
    EXPECT_EQ(dialog.GetSecondHeight(), second);
    dialog.DestroyWindow();

    // The next one takes 25 of the 60 for its second list.
    m_Stored.SetValue(u"SecondChildHeight", second + 25);
    CNetsDialog again;
    ASSERT_TRUE(again.Open());
    EXPECT_EQ(again.GetSecondHeight(), second + 25);
    EXPECT_EQ(again.GetFirstHeight(), first + 35);

    again.DestroyWindow();
    int kept = 0;
    EXPECT_TRUE(m_Stored.GetValue(u"SecondChildHeight", kept));
    EXPECT_EQ(kept, second + 25);
}

// Keys reach widgets alone.
using TwoStretchControlsTest = ResizeDialogPlaceTest;
INSTANTIATE_TEST_SUITE_P(Peers, TwoStretchControlsTest, testing::Values(EPeers::Widgets),
                         NamePeers);

// Changes its height at a key, so that what else is held down counts.
class CGrowingDialog : public CNetsDialog
{
public:
    int m_Growth = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const CRect place = GetWindowRect();
        if (message == WM_KEYDOWN && wParam == 'G')
            MoveWindow(CRect(place.left, place.top, place.right, place.bottom + m_Growth));
        return CNetsDialog::WindowProc(message, wParam, lParam);
    }
};

TEST_P(TwoStretchControlsTest, ShiftGrowsTheSecondAndAFullyShrunkOneGivesWay)
{
    CGrowingDialog dialog;
    ASSERT_TRUE(dialog.Open());
    dialog.ShowWindow(SW_SHOWNORMAL);
    const int first = dialog.GetFirstHeight();
    const int second = dialog.GetSecondHeight();
    struct CCase
    {
        const char* m_Name;
        int m_Growth;
        Qt::KeyboardModifiers m_Held;
        int m_First; // more than at the beginning
        int m_Second;
    };
    const CCase cases[] = {{"Shift", 40, Qt::ShiftModifier, 0, 40},
                           {"no key", 30, Qt::NoModifier, 30, 40},
                           {"more than the first can give", -35, Qt::NoModifier, 30, 5},
                           {"all that the first can give", -30, Qt::NoModifier, 0, 5},
                           {"all that the second can give", -5, Qt::ShiftModifier, 0, 0}};

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        dialog.m_Growth = row.m_Growth;
        QTest::keyClick(&FindWidget(dialog), Qt::Key_G, row.m_Held);
        EXPECT_EQ(dialog.GetFirstHeight(), first + row.m_First);
        EXPECT_EQ(dialog.GetSecondHeight(), second + row.m_Second);
    }
    QTest::keyClick(&FindWidget(dialog), Qt::Key_H); // nothing is held any more
}

TEST_P(ResizeDialogPlaceTest, AKeptHeightThatIsNoneChangesNothing)
{
    CNetsDialog measured;
    ASSERT_TRUE(measured.Open());
    const int second = measured.GetSecondHeight();
    measured.DestroyWindow();

    for (const int height : {0, -5, second, second - 1, INT_MIN, INT_MAX})
    {
        SCOPED_TRACE(height);
        m_Stored.SetValue(u"SecondChildHeight", height);
        CNetsDialog dialog;
        ASSERT_TRUE(dialog.Open());
        EXPECT_EQ(dialog.GetSecondHeight(), second);
    }
}

} // namespace
} // namespace utility
