#include "dialogs/controls/PictureControl.h"

#include "dialogs/ResizingHandle.h"
#include "platform/base/Rect.h"
#include "platform/system/window/WindowStyles.h"

#include "support/ui/Widgets.h"

#include <QImage>
#include <QWidget>
#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(PictureControlTest, ShowsAPictureOfTheTablesAndKeepsItWhereThereIsNoOther)
{
    CWnd dialog;
    CPictureControl picture;
    ASSERT_TRUE(dialog.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 100, 100}, nullptr));
    EXPECT_FALSE(picture.Create(1, WS_VISIBLE, {0, 0, 12, 12}, &dialog, 1));
    ASSERT_TRUE(picture.Create(UNSTYLED_HANDLE_ID, WS_VISIBLE, {0, 0, 12, 12}, &dialog, 1));
    EXPECT_EQ(picture.GetPictureSize(), CSize(12, 12));
    dialog.ShowWindow(SW_SHOWNORMAL);
    const QImage unstyled = FindWidget(picture).grab().toImage();

    EXPECT_TRUE(picture.SetPicture(STYLED_HANDLE_ID));
    const QImage styled = FindWidget(picture).grab().toImage();
    EXPECT_NE(unstyled, styled);
    EXPECT_FALSE(picture.SetPicture(1));
    EXPECT_EQ(FindWidget(picture).grab().toImage(), styled);
}

} // namespace
} // namespace utility
