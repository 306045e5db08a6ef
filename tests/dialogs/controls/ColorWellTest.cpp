#include "dialogs/controls/ColorWell.h"

#include "dialogs/PeersTest.h"
#include "dialogs/controls/PopupColorWell.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/controls/Button.h"

#include <functional>

namespace utility
{
namespace
{

constexpr UINT WELL_ID = 7;

class CWellParent : public CWnd
{
public:
    std::vector<UINT> m_Codes;

protected:
    bool OnCommand(WPARAM wParam, LPARAM) override
    {
        if (LOWORD(wParam) == WELL_ID)
            m_Codes.push_back(HIWORD(wParam));
        return true;
    }
};

template <typename TWell>
class CWellTest : public CPeersTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Parent.CreateEx(0, u"Frame", u"", WS_POPUP, {50, 50, 250, 200}, nullptr));
        ASSERT_TRUE(m_Well.Create(u"Colour of copper", WS_VISIBLE | WS_TABSTOP, {10, 10, 70, 30},
                                  &m_Parent, WELL_ID));
    }

    CWellParent m_Parent;
    TWell m_Well;
};

using WellButtonTest = CWellTest<SECWellButton>;
INSTANTIATE_TEST_SUITE_P(Peers, WellButtonTest, AllPeers(), NamePeers);

TEST_P(WellButtonTest, ClicksAndKeysTellTheParentOnce)
{
    m_Well.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    m_Well.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(6, 6));
    EXPECT_EQ(m_Parent.m_Codes.size(), 1u);
    m_Well.SendMessage(WM_KEYDOWN, VK_SPACE);
    EXPECT_EQ(m_Parent.m_Codes.size(), 1u);
    m_Well.SendMessage(WM_KEYUP, VK_SPACE);
    m_Well.SendMessage(WM_KEYDOWN, VK_RETURN);

    EXPECT_EQ(m_Parent.m_Codes, (std::vector<UINT>{BN_CLICKED, BN_CLICKED, BN_CLICKED}));
}

TEST_P(WellButtonTest, AReleaseOutsideOrWithoutAPressTellsNothing)
{
    m_Well.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    m_Well.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(500, 5));
    m_Well.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    m_Well.SendMessage(WM_KEYUP, VK_SPACE);

    EXPECT_TRUE(m_Parent.m_Codes.empty());
}

// Answers the palette that a click opens, once that waits.
class ColorWellTest : public CWellTest<SECColorWell>
{
protected:
    using Answer = std::function<void(CWnd& popup)>;

    void WillAnswer(Answer answer)
    {
        GetMessageLoop().Post(
            [this, answer = std::move(answer)]
            {
                CWnd* popup = FindPopup();
                EXPECT_NE(popup, nullptr);
                if (popup)
                    answer(*popup);
                else
                    m_Parent.DestroyWindow();
            });
    }
    static CWnd* FindPopup()
    {
        for (const HWND window : CWnd::GetTopLevelWindows())
        {
            CWnd* popup = CWnd::FromHandle(window);
            if (popup && popup->GetClassName() == u"SECPopupColorWell" && popup->IsWindowVisible())
                return popup;
        }
        return nullptr;
    }
    void WillPress(std::vector<UINT> keys)
    {
        WillAnswer(
            [this, keys = std::move(keys)](CWnd& popup)
            {
                for (const UINT key : keys)
                {
                    m_Titles.push_back(popup.GetWindowText());
                    popup.SendMessage(WM_KEYDOWN, key);
                }
            });
    }
    void Click()
    {
        m_Well.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        m_Well.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(6, 6));
    }

    std::vector<CString> m_Titles; // what a screen reader would have said before each key
};

INSTANTIATE_TEST_SUITE_P(Peers, ColorWellTest, AllPeers(), NamePeers);

TEST_P(ColorWellTest, TakesTheColourThatKeysChooseAndTellsTheParent)
{
    m_Well.SetColor(RGB(64, 64, 64));
    WillPress({VK_LEFT, VK_DOWN, VK_RETURN});

    Click();

    EXPECT_EQ(m_Well.GetColor(), RGB(48, 48, 64));
    EXPECT_EQ(m_Parent.m_Codes, (std::vector<UINT>{CWN_COLOURCHANGE}));
    EXPECT_EQ(m_Titles, (std::vector<CString>{u"#404040", u"#000000", u"#303040"}));
}

TEST_P(ColorWellTest, EscapeAndTheSameColourAgainChangeNothing)
{
    m_Well.SetColor(RGB(255, 255, 255));
    WillPress({VK_LEFT, VK_ESCAPE});
    Click();
    WillPress({VK_RETURN});
    m_Well.SendMessage(WM_SYSKEYDOWN, VK_DOWN);

    EXPECT_EQ(m_Well.GetColor(), RGB(255, 255, 255));
    EXPECT_TRUE(m_Parent.m_Codes.empty());
}

TEST_P(ColorWellTest, AnEndOfTheParentClosesThePalette)
{
    WillAnswer([this](CWnd&) { m_Parent.DestroyWindow(); });

    Click();

    EXPECT_EQ(m_Well.GetSafeHwnd(), nullptr);
    EXPECT_TRUE(m_Parent.m_Codes.empty());
}

TEST_P(ColorWellTest, AClickOnAColourTakesIt)
{
    const CRect red = CColourPalette().GetCellPlace(25);
    WillAnswer(
        [red](CWnd& popup)
        {
            const CPoint point = red.CenterPoint();
            popup.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(1, 1)); // on the margin: nothing
            popup.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
        });

    Click();

    EXPECT_EQ(m_Well.GetColor(), RGB(255, 0, 0));
}

} // namespace
} // namespace utility
