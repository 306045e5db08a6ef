#include "dialogs/ResizeDialog.h"

#include "dialogs/PeersTest.h"
#include "dialogs/ResizingHandle.h"
#include "dialogs/TestDialogs.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/WindowMessages.h"

#include "support/SettingsSandbox.h"

#include <vector>

namespace utility
{
namespace
{

class CPartsDialog : public CResizeDialog
{
public:
    explicit CPartsDialog(bool isResizable = true)
        : CResizeDialog(CTestDialogs::PARTS_DIALOG, nullptr, isResizable)
    {
    }
    bool Open() { return Create(CTestDialogs::PARTS_DIALOG); }

    CRect PlaceOf(UINT id) const
    {
        CRect place = GetDlgItem(static_cast<int>(id))->GetWindowRect();
        ScreenToClient(place);
        return place;
    }
    void GrowBy(int dx, int dy)
    {
        const CRect place = GetWindowRect();
        MoveWindow(CRect(place.left, place.top, place.right + dx, place.bottom + dy));
    }
};

class ResizeDialogTest : public CPeersTest
{
protected:
    const CSettingsSandbox m_Settings;
    const CTestDialogs m_Templates;
};

INSTANTIATE_TEST_SUITE_P(Peers, ResizeDialogTest, AllPeers(), NamePeers);

TEST_P(ResizeDialogTest, ChildrenFollowTheSizeAndComeBackWithIt)
{
    CPartsDialog dialog;
    EXPECT_FALSE(dialog.IsInitialised());
    ASSERT_TRUE(dialog.Open());
    EXPECT_TRUE(dialog.IsInitialised());
    struct CCase
    {
        const char* m_Name;
        UINT m_Id;
        CRect m_Growth; // of each side
    };
    const CCase cases[] = {{"list", CTestDialogs::FIRST_LIST, {0, 0, 60, 40}},
                           {"edit above", CTestDialogs::NAME_EDIT, {0, 0, 60, 0}},
                           {"check at the right", CTestDialogs::ALL_CHECK, {60, 0, 60, 0}},
                           {"button below", IDOK, {0, 40, 60, 40}},
                           {"button at the corner", IDCANCEL, {60, 40, 60, 40}}};
    std::vector<CRect> before;
    for (const CCase& row : cases)
        before.push_back(dialog.PlaceOf(row.m_Id));

    dialog.GrowBy(25, 40);
    dialog.GrowBy(35, 0);

    for (std::size_t i = 0; i < before.size(); ++i)
    {
        SCOPED_TRACE(cases[i].m_Name);
        const CRect growth = cases[i].m_Growth;
        EXPECT_EQ(dialog.PlaceOf(cases[i].m_Id),
                  CRect(before[i].left + growth.left, before[i].top + growth.top,
                        before[i].right + growth.right, before[i].bottom + growth.bottom));
    }
    dialog.GrowBy(-60, -40);
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(dialog.PlaceOf(cases[i].m_Id), before[i]) << cases[i].m_Name;
}

TEST_P(ResizeDialogTest, StopsShrinkingAtTheSizeOfItsTemplate)
{
    CPartsDialog dialog;
    ASSERT_TRUE(dialog.Open());
    const CSize before = dialog.GetWindowRect().Size();

    dialog.GrowBy(-50, 30);
    EXPECT_EQ(dialog.GetWindowRect().Size(), before + CSize(0, 30));
    dialog.GrowBy(0, -1000);
    EXPECT_EQ(dialog.GetWindowRect().Size(), before);
}

TEST_P(ResizeDialogTest, OneThatIsNotResizableLeavesItsChildrenAlone)
{
    CPartsDialog dialog(false);
    ASSERT_TRUE(dialog.Open());
    const CRect before = dialog.PlaceOf(CTestDialogs::FIRST_LIST);

    dialog.GrowBy(50, 50);

    EXPECT_EQ(dialog.PlaceOf(CTestDialogs::FIRST_LIST), before);
    EXPECT_EQ(dialog.GetDlgItem(STYLED_HANDLE_ID), nullptr);
}

TEST_P(ResizeDialogTest, TheHandleStaysInTheCorner)
{
    CPartsDialog dialog;
    ASSERT_TRUE(dialog.Open());
    for (const int growth : {0, 50, -20})
    {
        dialog.GrowBy(growth, growth);
        const CSize client = dialog.GetClientRect().Size();
        EXPECT_EQ(dialog.PlaceOf(STYLED_HANDLE_ID),
                  CRect(client.cx - 12, client.cy - 12, client.cx, client.cy));
    }
}

TEST_P(ResizeDialogTest, MadeAgainItBeginsAnew)
{
    CPartsDialog dialog;
    ASSERT_TRUE(dialog.Open());
    dialog.GrowBy(80, 80);
    const CRect before = dialog.PlaceOf(IDCANCEL);
    dialog.DestroyWindow();
    EXPECT_FALSE(dialog.IsInitialised());

    ASSERT_TRUE(dialog.Open());
    EXPECT_EQ(dialog.GetTopWindow()->GetDlgCtrlID(), int{CTestDialogs::FIRST_LIST});
    EXPECT_EQ(dialog.PlaceOf(IDCANCEL), before - CPoint(80, 80));
    dialog.GrowBy(80, 80);
    EXPECT_EQ(dialog.PlaceOf(IDCANCEL), before);
}

// Takes the place of its check box into its own hands, and asks for what cannot be.
class CContraryDialog : public CPartsDialog
{
public:
    int m_Asked = 0;

protected:
    bool AdjustControl(HDWP& moves, CWnd& control, int dx, int dy) override
    {
        ++m_Asked;
        switch (control.GetDlgCtrlID())
        {
        case CTestDialogs::ALL_CHECK:
            MoveControl(moves, control, -dx, 2 * dy);
            return true;
        case CTestDialogs::NAME_EDIT:
            ResizeControl(moves, control, -10 * dx, -10 * dy);
            return true;
        case IDOK:
            MoveAndResizeControl(moves, control, 1, 2, 3, 4);
            return true;
        default:
            return false;
        }
    }
};

TEST_P(ResizeDialogTest, ADerivedDialogPlacesChildrenItself)
{
    CContraryDialog dialog;
    ASSERT_TRUE(dialog.Open());
    const CRect check = dialog.PlaceOf(CTestDialogs::ALL_CHECK);
    const CRect button = dialog.PlaceOf(IDOK);
    const CRect cancel = dialog.PlaceOf(IDCANCEL);

    dialog.GrowBy(100, 10);

    EXPECT_EQ(dialog.PlaceOf(CTestDialogs::ALL_CHECK), check + CPoint(-100, 20));
    EXPECT_EQ(dialog.PlaceOf(IDOK),
              CRect(button.left + 1, button.top + 2, button.right + 4, button.bottom + 6));
    EXPECT_EQ(dialog.PlaceOf(IDCANCEL), cancel + CPoint(100, 10));
    EXPECT_TRUE(dialog.PlaceOf(CTestDialogs::NAME_EDIT).IsRectEmpty());
    EXPECT_EQ(dialog.m_Asked, 5) << "all but the stretch control and the handle";
}

TEST_P(ResizeDialogTest, MinimisingMovesNothing)
{
    CPartsDialog dialog;
    ASSERT_TRUE(dialog.Open());
    const CRect before = dialog.PlaceOf(IDCANCEL);

    dialog.SendMessage(WM_SIZE, SIZE_MINIMIZED, 0);

    EXPECT_EQ(dialog.PlaceOf(IDCANCEL), before);
}

TEST_P(ResizeDialogTest, OneLargerThanTheScreenShowsItsTopLeftCorner)
{
    CResizeDialog dialog(CTestDialogs::HUGE_DIALOG, nullptr);
    ASSERT_TRUE(dialog.Create(CTestDialogs::HUGE_DIALOG));

    dialog.ShowWindow(SW_SHOWNORMAL);

    const CRect place = dialog.GetWindowRect();
    EXPECT_GE(place.left, 0);
    EXPECT_GE(place.top, 0);
    EXPECT_GT(place.Width(), 4000);
}

} // namespace
} // namespace utility
