#include "dialogs/controls/ButtonCtrl.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ControlTest.h"

namespace utility
{
namespace
{

class ButtonCtrlTest : public ControlTest
{
};

TEST_F(ButtonCtrlTest, CountsMarksOfAButton)
{
    CButtonCtrl button;
    ASSERT_TRUE(button.Create(u"Go", SEEN | BS_AUTO3STATE, PLACE, &m_Parent, 9));
    struct CCase
    {
        int m_Checked, m_Count, m_Mark;
    };
    constexpr CCase CASES[] = {{0, 3, BST_UNCHECKED},
                               {1, 3, BST_INDETERMINATE},
                               {3, 3, BST_CHECKED},
                               {0, 0, BST_UNCHECKED}};
    for (const CCase& row : CASES)
    {
        button.SetCheckedCount(row.m_Checked, row.m_Count);
        EXPECT_EQ(button.GetCheck(), row.m_Mark);
        EXPECT_EQ(button.IsChecked(), row.m_Mark == BST_CHECKED);
    }
    button.SetChecked();
    button.Click();
    EXPECT_EQ(button.GetCheck(), BST_INDETERMINATE) << "as if by the user";
    EXPECT_EQ(m_Parent.TakeCodes(), std::vector<int>{BN_CLICKED});
    button.SetText(u"Stop");
    EXPECT_EQ(button.GetWindowText(), u"Stop");
}

} // namespace
} // namespace utility
