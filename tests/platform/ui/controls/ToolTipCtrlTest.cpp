#include "platform/ui/controls/ToolTipCtrl.h"

#include "platform/ui/controls/Button.h"

#include "ControlTest.h"

#include <QHelpEvent>
#include <QToolTip>

namespace utility
{
namespace
{

/// A window that gives the texts of its tools when they are asked for.
class CTipOwner final : public CWnd
{
protected:
    bool OnNotify(WPARAM id, LPARAM lParam, LRESULT*) override
    {
        auto* note = reinterpret_cast<TOOLTIPTEXT*>(lParam);
        if (note->hdr.code == TTN_NEEDTEXT)
            note->m_Text.Format(u"Cell %d", static_cast<int>(id));
        return true;
    }
};

class ToolTipCtrlTest : public ControlTest
{
protected:
    ToolTipCtrlTest()
    {
        m_Button.Create(u"Go", SEEN, PLACE, &m_Parent, 1);
        m_Tips.Create(&m_Parent);
    }
    ~ToolTipCtrlTest() override { EndTips(); }

    /// At once: left to itself, a tip goes a while later.
    static void EndTips()
    {
        for (QWidget* widget : QApplication::topLevelWidgets())
        {
            if (widget->inherits("QTipLabel"))
                delete widget;
        }
    }

    /// What comes up when the pointer rests there; empty if nothing does.
    static QString TipAt(const CWnd& window, QPoint place)
    {
        QWidget& widget = FindWidget(window);
        EndTips();
        QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QApplication::sendEvent(&widget, &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }

    CButton m_Button;
    CToolTipCtrl m_Tips;
};

TEST_F(ToolTipCtrlTest, ShowsTheTextOfATool)
{
    EXPECT_TRUE(m_Tips.AddTool(&m_Button, u"Starts <it>"));
    EXPECT_TRUE(TipAt(m_Button, {5, 5}).contains(QStringLiteral("Starts &lt;it&gt;")));
    EXPECT_EQ(FindWidget(m_Button).accessibleDescription(), QStringLiteral("Starts <it>"));

    m_Tips.UpdateTipText(u"Ends it", &m_Button);
    EXPECT_TRUE(TipAt(m_Button, {5, 5}).contains(QStringLiteral("Ends it")));
    m_Tips.Activate(false);
    EXPECT_EQ(TipAt(m_Button, {5, 5}), QString());
    m_Tips.Activate(true);
    m_Tips.DelTool(&m_Button);
    EXPECT_EQ(m_Tips.GetToolCount(), 0);
    EXPECT_EQ(TipAt(m_Button, {5, 5}), QString());
    EXPECT_EQ(FindWidget(m_Button).accessibleDescription(), QString());
}

TEST_F(ToolTipCtrlTest, TellsPartsOfAWindowApart)
{
    CTipOwner owner;
    ASSERT_TRUE(
        owner.CreateEx(0, u"Cells", u"", WS_CHILD | WS_VISIBLE, {0, 120, 200, 200}, &m_Parent, 2));
    m_Tips.AddTool(&owner, u"First", {0, 0, 50, 50}, 1);
    m_Tips.AddTool(&owner, CString(), {50, 0, 100, 50}, 2);
    EXPECT_EQ(m_Tips.GetToolCount(), 2);

    EXPECT_TRUE(TipAt(owner, {10, 10}).contains(QStringLiteral("First")));
    EXPECT_TRUE(TipAt(owner, {60, 10}).contains(QStringLiteral("Cell 2"))) << "asked for";
    EXPECT_EQ(TipAt(owner, {150, 10}), QString());
}

TEST_F(ToolTipCtrlTest, BreaksLinesOnlyWithAGreatestWidth)
{
    m_Tips.AddTool(&m_Button, u"one\r\ntwo");
    EXPECT_TRUE(TipAt(m_Button, {5, 5}).contains(QStringLiteral("one two")));
    EXPECT_EQ(m_Tips.SetMaxTipWidth(8192), -1);
    EXPECT_TRUE(TipAt(m_Button, {5, 5}).contains(QStringLiteral("one<br>two")));
    EXPECT_EQ(m_Tips.SetMaxTipWidth(10), 8192);
    EXPECT_TRUE(TipAt(m_Button, {5, 5}).contains(QStringLiteral("width='10'")));
}

TEST_F(ToolTipCtrlTest, RefusesAToolWithoutAWindow)
{
    CWnd none;
    EXPECT_FALSE(m_Tips.AddTool(&none, u"Nothing"));
    EXPECT_EQ(m_Tips.GetToolCount(), 0);
}

} // namespace
} // namespace utility
