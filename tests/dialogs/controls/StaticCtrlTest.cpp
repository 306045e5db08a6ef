#include "dialogs/controls/StaticCtrl.h"

#include "platform/ui/controls/ControlTest.h"

namespace utility
{
namespace
{

class StaticCtrlTest : public ControlTest
{
};

TEST_F(StaticCtrlTest, FitsTextsOfALabel)
{
    CStaticCtrl label;
    ASSERT_TRUE(label.Create(u"a", WS_CHILD | WS_VISIBLE, {0, 0, 60, 20}, &m_Parent, 1));
    EXPECT_FALSE(label.IsTextTooLong());
    label.SetText(u"A text that is much longer than its label");
    EXPECT_TRUE(label.IsTextTooLong());
    EXPECT_FALSE(label.SetText(UINT{99999999}));
    EXPECT_TRUE(label.SetText(UINT{10687}));
    EXPECT_NE(label.GetWindowText(), u"A text that is much longer than its label");
}

} // namespace
} // namespace utility
