#include "text/Clipboard.h"

#include "platform/system/window/UserInterface.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(ClipboardTest, TextIsOfferedThroughTheUserInterface)
{
    CString offered;

    EXPECT_TRUE(StringToClipboard(u"R1\tR2"));
    EXPECT_TRUE(GetUserInterface().GetClipboardText(offered));
    EXPECT_EQ(offered, u"R1\tR2");
}

} // namespace utility
