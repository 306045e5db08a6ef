#include "dialogs/FloatEdit.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowMessages.h"

#include "support/ui/Widgets.h"

#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace utility
{
namespace
{

constexpr UINT EDIT_ID = 5;

// Counts what its edit tells it.
class CChangeParent : public CWnd
{
public:
    int m_Changes = 0;

protected:
    bool OnCommand(WPARAM wParam, LPARAM) override
    {
        m_Changes += LOWORD(wParam) == EDIT_ID && HIWORD(wParam) == EN_CHANGE;
        return true;
    }
};

class FloatEditTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Dialog.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 300, 200}, nullptr));
        ASSERT_TRUE(m_Edit.Create(WS_CHILD | WS_VISIBLE, {10, 10, 150, 35}, &m_Dialog, EDIT_ID));
    }
    /// As a user would: all selected, then typed over.
    void Type(const char* text)
    {
        m_Edit.SetSel(0, -1);
        QTest::keyClicks(&FindWidget(m_Edit), text);
    }

    CChangeParent m_Dialog;
    CFloatEdit m_Edit;
};

TEST_F(FloatEditTest, GivesWhatWasSetAsLongAsNothingIsChanged)
{
    m_Edit.SetValue(0.123456);

    double value = 0;
    EXPECT_EQ(m_Edit.GetWindowText(), u"0.123");
    EXPECT_TRUE(m_Edit.GetValue(value));
    EXPECT_EQ(value, 0.123456) << "all of it, not what is shown";
    EXPECT_FALSE(m_Edit.IsModified());

    m_Edit.SetPrecision(1);
    EXPECT_EQ(m_Edit.GetWindowText(), u"0.123") << "counts from the next value on";
    m_Edit.SetValue(-2.06);
    EXPECT_EQ(m_Edit.GetWindowText(), u"-2.1");
}

TEST_F(FloatEditTest, ReadsWhatTheUserTypes)
{
    struct CCase
    {
        const char* m_Typed;
        bool m_IsNumber;
        double m_Value;
    };
    const CCase cases[] = {{"2.5", true, 2.5},    {"2,5", true, 2.5}, {"12 mm", true, 12},
                           {"-1e3", true, -1000}, {"abc", false, 77}, {"mm 12", false, 77},
                           {"1.500", true, 1.5}};
    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Typed);
        m_Edit.SetValue(1.5);
        Type(row.m_Typed);
        double value = 77;
        EXPECT_EQ(m_Edit.GetValue(value), row.m_IsNumber);
        EXPECT_EQ(value, row.m_Value);
        EXPECT_EQ(m_Edit.IsModified(), row.m_Value != 1.5);
    }

    m_Edit.SetWindowText(u"");
    double value = 77;
    EXPECT_FALSE(m_Edit.GetValue(value));
    EXPECT_EQ(value, 77);
}

TEST_F(FloatEditTest, TheParentHearsOfEachChangeToo)
{
    m_Edit.SetValue(1.5);
    const int before = m_Dialog.m_Changes;

    Type("2");

    EXPECT_GT(m_Dialog.m_Changes, before);
}

TEST_F(FloatEditTest, ValuesThatDifferAreNotShownUntilTheUserTypesOne)
{
    const double same[] = {2.5, 2.5};
    m_Edit.SetValues(same);
    EXPECT_EQ(m_Edit.GetWindowText(), u"2.500");

    const double different[] = {2.5, 3.5};
    m_Edit.SetValues(different);
    EXPECT_EQ(m_Edit.GetWindowText(), u"<Different>");
    EXPECT_FALSE(m_Edit.IsModified());
    double value = 77;
    EXPECT_TRUE(m_Edit.GetValue(value));
    EXPECT_EQ(value, 0);

    Type("4");
    EXPECT_TRUE(m_Edit.IsModified());
    EXPECT_TRUE(m_Edit.GetValue(value));
    EXPECT_EQ(value, 4);
    m_Edit.SetWindowText(u"<Different>");
    EXPECT_FALSE(m_Edit.IsModified());

    m_Edit.SetValue(1);
    EXPECT_FALSE(m_Edit.IsModified());
    m_Edit.SetModified(true);
    EXPECT_TRUE(m_Edit.IsModified());
    EXPECT_TRUE(m_Edit.GetValue(value));
    EXPECT_EQ(value, 1);
}

} // namespace
} // namespace utility
