#include "dialogs/BaseDialog.h"

#include "dialogs/TestDialogs.h"
#include "platform/ui/BCGPVisualManager.h"
#include "platform/ui/SystemMetrics.h"

#include "support/ui/Widgets.h"

#include <QImage>
#include <QWidget>
#include <gtest/gtest.h>

namespace utility
{
namespace
{

class CThemedDialog : public CBaseDialog
{
public:
    CThemedDialog() : CBaseDialog(CTestDialogs::PARTS_DIALOG, nullptr) {}
    using CBaseDialog::AddNonSubclassedItem;
};

class BaseDialogTest : public testing::Test
{
protected:
    ~BaseDialogTest() override { CBCGPVisualManager::GetInstance()->EnableDialogStyling(true); }

    const CTestDialogs m_Templates;
};

TEST_F(BaseDialogTest, TakesTheManagersColoursOrTheDesktopsAndFollowsAChange)
{
    CBCGPVisualManager& manager = *CBCGPVisualManager::GetInstance();
    CThemedDialog dialog;
    ASSERT_TRUE(dialog.Create(CTestDialogs::PARTS_DIALOG));
    EXPECT_TRUE(dialog.IsVisualManagerStyle());
    EXPECT_EQ(dialog.GetBackgroundColour(), manager.GetDialogBackground());
    EXPECT_EQ(dialog.GetTextColour(), manager.GetDialogTextColor());

    manager.EnableDialogStyling(false);
    EXPECT_FALSE(dialog.IsVisualManagerStyle());
    EXPECT_EQ(dialog.GetBackgroundColour(), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(dialog.GetTextColour(), GetSysColor(COLOR_WINDOWTEXT));

    dialog.ShowWindow(SW_SHOWNORMAL);
    const QColor corner = FindWidget(dialog).grab().toImage().pixelColor(1, 1);
    EXPECT_EQ(RGB(corner.red(), corner.green(), corner.blue()), dialog.GetBackgroundColour());
}

TEST_F(BaseDialogTest, LeavesSeveralControlsOutAlsoAfterAChange)
{
    CThemedDialog dialog;
    ASSERT_TRUE(dialog.Create(CTestDialogs::PARTS_DIALOG));
    dialog.AddNonSubclassedItem(CTestDialogs::NAME_EDIT);
    dialog.AddNonSubclassedItem(CTestDialogs::ALL_CHECK);
    CBCGPVisualManager::GetInstance()->NotifyChange();

    EXPECT_TRUE(dialog.IsLeftOut(CTestDialogs::NAME_EDIT));
    EXPECT_TRUE(dialog.IsLeftOut(CTestDialogs::ALL_CHECK));
    EXPECT_FALSE(dialog.IsLeftOut(CTestDialogs::FIRST_LIST));
}

TEST_F(BaseDialogTest, LayoutCountsInPixelsAt96DotsPerInch)
{
    EXPECT_TRUE(CBaseDialog::IsDefaultDPI());
    EXPECT_EQ(CBaseDialog::DPIScale(12), 12);
}

} // namespace
} // namespace utility
