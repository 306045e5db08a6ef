#include "dialogs/controls/ToolTipEx.h"

#include "platform/ui/controls/Button.h"
#include "platform/ui/controls/ControlTest.h"

namespace utility
{
namespace
{

class ToolTipExTest : public ControlTest
{
protected:
    ToolTipExTest() { m_Button.Create(u"Go", SEEN, PLACE, &m_Parent, 9); }

    CButton m_Button;
};

TEST_F(ToolTipExTest, GathersLines)
{
    CToolTipEx tips;
    ASSERT_TRUE(tips.Create(&m_Parent));
    tips.AddLine(&m_Button, u"Starts the search");
    tips.AddLine(&m_Button, u"in all libraries");

    EXPECT_EQ(tips.GetTip(&m_Button), u"Starts the search\r\nin all libraries");
    EXPECT_EQ(FindWidget(m_Button).accessibleDescription().count(QChar(u'\n')), 1);
    EXPECT_EQ(tips.SetMaxTipWidth(200), CToolTipEx::NO_GREATEST_WIDTH);
    tips.SetTip(&m_Button, CString());
    EXPECT_EQ(tips.GetTip(&m_Button), u"");
    EXPECT_EQ(tips.GetToolCount(), 0);
}

TEST_F(ToolTipExTest, TakesTextsOfTheTable)
{
    CToolTipEx tips;
    ASSERT_TRUE(tips.Create(&m_Parent));
    EXPECT_FALSE(tips.SetTip(m_Parent, 10, 10687)) << "no such control";
    EXPECT_FALSE(tips.SetTip(m_Parent, 9, 99999999)) << "no such text";
    EXPECT_TRUE(tips.SetTip(m_Parent, 9, 10687));
    EXPECT_FALSE(tips.GetTip(&m_Button).IsEmpty());
}

} // namespace
} // namespace utility
