#include "dialogs/controls/EditCtrl.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowStyles.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(EditCtrlTest, ATextThatIsThereAlreadyIsNotWrittenAgain)
{
    CWnd dialog;
    CEditCtrl edit;
    ASSERT_TRUE(dialog.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 100, 100}, nullptr));
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, {0, 0, 90, 25}, &dialog, 1));
    EXPECT_TRUE(edit.IsEmpty());
    edit.SetText(u"R17");
    EXPECT_FALSE(edit.IsEmpty());
    edit.SetSel(1, 2);
    int first = 0;
    int last = 0;

    edit.SetText(u"R17");
    edit.GetSel(first, last);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(last, 2);

    edit.SelectAll();
    edit.GetSel(first, last);
    EXPECT_EQ(last, 3);
    EXPECT_FALSE(edit.IsReadOnly());
    edit.SetReadOnly();
    EXPECT_TRUE(edit.IsReadOnly());
}

} // namespace
} // namespace utility
