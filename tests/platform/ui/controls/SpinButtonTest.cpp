#include "platform/ui/controls/SpinButton.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Edit.h"

#include "ControlTest.h"

#include <QToolButton>

namespace utility
{
namespace
{

class SpinButtonTest : public ControlTest
{
protected:
    void Make(DWORD style)
    {
        ASSERT_TRUE(m_Edit.Create(SEEN, {0, 0, 50, 20}, &m_Parent, 1));
        ASSERT_TRUE(m_Spin.Create(SEEN | UDS_AUTOBUDDY | style, {50, 0, 66, 20}, &m_Parent, 2));
        m_Parent.m_Silent = {EN_UPDATE, EN_CHANGE};
    }
    void Step(int button) const
    {
        QTest::mouseClick(FindWidget(m_Spin).findChildren<QToolButton*>().at(button),
                          Qt::LeftButton);
    }

    CEdit m_Edit;
    CSpinButtonCtrl m_Spin;
};

TEST_F(SpinButtonTest, StepsWithinItsRange)
{
    struct CCase
    {
        const char* m_Name;
        DWORD m_Style;
        int m_Low, m_High, m_Start;
        int m_Up, m_Down; // one step each from the start
    };
    constexpr CCase CASES[] = {{"inside", 0, 0, 10, 5, 6, 4},
                               {"at the end", 0, 0, 10, 10, 10, 9},
                               {"around", UDS_WRAP, 0, 10, 10, 0, 9},
                               {"around below", UDS_WRAP, 0, 10, 0, 1, 10},
                               {"turned round", 0, 10, 0, 5, 4, 6}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Name);
        CSpinButtonCtrl spin;
        ASSERT_TRUE(spin.Create(SEEN | row.m_Style, {50, 0, 66, 20}, &m_Parent, 2));
        spin.SetRange32(row.m_Low, row.m_High);
        spin.SetPos32(row.m_Start);
        const auto buttons = FindWidget(spin).findChildren<QToolButton*>();
        QTest::mouseClick(buttons.at(0), Qt::LeftButton);
        EXPECT_EQ(spin.GetPos32(), row.m_Up);
        EXPECT_EQ(spin.SetPos32(row.m_Start), row.m_Up);
        QTest::mouseClick(buttons.at(1), Qt::LeftButton);
        EXPECT_EQ(spin.GetPos32(), row.m_Down);
    }
}

TEST_F(SpinButtonTest, WritesAndReadsTheNumberOfItsBuddy)
{
    Make(UDS_SETBUDDYINT);
    EXPECT_EQ(m_Spin.GetBuddy(), &m_Edit);
    m_Spin.SetPos32(7);
    EXPECT_EQ(m_Edit.GetWindowText(), u"7");
    m_Edit.SetWindowText(u"41");
    Step(0);
    EXPECT_EQ(m_Edit.GetWindowText(), u"42");
    EXPECT_EQ(m_Parent.TakeCodes(), std::vector<int>{UDN_DELTAPOS});
    m_Edit.SetWindowText(u"x");
    EXPECT_EQ(m_Spin.GetPos32(), 42) << "no number: the last one";
    m_Spin.SetPos32(1000);
    EXPECT_EQ(m_Edit.GetWindowText(), u"100");

    m_Parent.m_Answer = 1;
    Step(1);
    EXPECT_EQ(m_Spin.GetPos32(), 100) << "the parent keeps it";
}

} // namespace
} // namespace utility
