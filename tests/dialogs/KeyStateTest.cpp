#include "dialogs/KeyState.h"

#include "platform/base/Rect.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"

#include "support/ui/Widgets.h"

#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include <string>

namespace utility
{
namespace
{

// Notes at each letter which of the three keys was down alone.
class CKeyWnd : public CWnd
{
public:
    std::string m_Alone;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_KEYDOWN && wParam == 'A')
        {
            const auto keys = {VK_SHIFT, VK_CONTROL, VK_MENU};
            std::string alone;
            for (const UINT key : keys)
                alone += IsKeyDownExclusively(key, keys) ? 'x' : '-';
            m_Alone = alone;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

TEST(KeyStateTest, OneKeyIsDownExclusivelyIfNoneOfTheOthersIs)
{
    CKeyWnd window;
    ASSERT_TRUE(window.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 100, 100}, nullptr));
    window.ShowWindow(SW_SHOWNORMAL);
    struct CCase
    {
        Qt::KeyboardModifiers m_Held;
        const char* m_Alone;
    };
    const CCase cases[] = {{Qt::NoModifier, "---"},
                           {Qt::ShiftModifier, "x--"},
                           {Qt::ControlModifier, "-x-"},
                           {Qt::ShiftModifier | Qt::ControlModifier, "---"},
                           {Qt::NoModifier, "---"}};

    for (const CCase& row : cases)
    {
        QTest::keyClick(&FindWidget(window), Qt::Key_A, row.m_Held);
        EXPECT_EQ(window.m_Alone, row.m_Alone);
    }
}

} // namespace
} // namespace utility
