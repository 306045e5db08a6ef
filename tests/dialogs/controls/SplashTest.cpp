#include "dialogs/controls/Splash.h"

#include "platform/base/Rect.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/drawing/Bitmap.h"

#include "support/ui/Widgets.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

class SplashTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_Picture.CreateBitmap(200, 100)); }

    CBitmap m_Picture;
    CSplash m_Splash;
};

TEST_F(SplashTest, StandsAsLargeAsItsPictureAndTellsWhatIsDone)
{
    ASSERT_TRUE(m_Splash.Show(m_Picture, 0));
    m_Splash.SetStatus(u"Reading parts");

    EXPECT_TRUE(m_Splash.IsWindowVisible());
    EXPECT_EQ(m_Splash.GetWindowRect().Size(), CSize(200, 100));
    EXPECT_EQ(m_Splash.GetWindowText(), u"Reading parts");
}

TEST_F(SplashTest, GoesAtAClickAKeyOrAfterAWhile)
{
    for (const UINT message : {WM_LBUTTONDOWN, WM_KEYDOWN, WM_TIMER})
    {
        SCOPED_TRACE(message);
        ASSERT_TRUE(m_Splash.Show(m_Picture, 60000));
        m_Splash.SendMessage(message, message == WM_TIMER ? 1 : 0);
        EXPECT_EQ(m_Splash.GetSafeHwnd(), nullptr);
    }
}

TEST_F(SplashTest, WithoutAPictureThereIsNone)
{
    CBitmap none;

    EXPECT_FALSE(m_Splash.Show(none, 0));
}

} // namespace
} // namespace utility
