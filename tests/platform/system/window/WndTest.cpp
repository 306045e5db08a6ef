#include "platform/system/window/Wnd.h"

#include "platform/base/String.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"

#include <gtest/gtest.h>

#include <vector>

namespace utility
{
namespace
{

constexpr UINT BASE_MESSAGE = WM_USER + 1;
constexpr UINT OVERRIDDEN_MESSAGE = WM_USER + 2;
constexpr UINT COPY_COMMAND = 100;

class CNotingWnd : public CWnd
{
public:
    std::vector<std::string> m_Notes;
    bool m_Swallow = false;

    LRESULT OnBase(WPARAM wParam, LPARAM lParam)
    {
        m_Notes.push_back("base");
        return static_cast<LRESULT>(wParam) + lParam;
    }
    void OnCopy() { m_Notes.push_back("copy"); }

    const CMessageMap* GetMessageMap() const override
    {
        static constexpr CMessageRow ROWS[] = {MessageRow<&CNotingWnd::OnBase>(BASE_MESSAGE),
                                               MessageRow<&CNotingWnd::OnBase>(OVERRIDDEN_MESSAGE),
                                               CommandRow<&CNotingWnd::OnCopy>(COPY_COMMAND)};
        static const CMessageMap MAP{CWnd::GetMessageMap(), ROWS};
        return &MAP;
    }
    bool PreTranslateMessage(UINT, WPARAM, LPARAM) override { return m_Swallow; }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_DESTROY)
            m_Notes.push_back("destroy");
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class CDerivedWnd : public CNotingWnd
{
public:
    LRESULT OnDerived(WPARAM, LPARAM)
    {
        m_Notes.push_back("derived");
        return 0;
    }
    const CMessageMap* GetMessageMap() const override
    {
        static constexpr CMessageRow ROWS[] = {
            MessageRow<&CDerivedWnd::OnDerived>(OVERRIDDEN_MESSAGE)};
        static const CMessageMap MAP{CNotingWnd::GetMessageMap(), ROWS};
        return &MAP;
    }
};

using Notes = std::vector<std::string>;

void HandleWaiting()
{
    GetMessageLoop().HandleWaiting();
}

TEST(WndTest, FindsHandlersInTheDerivedMapFirstThenInTheBase)
{
    CDerivedWnd window;
    ASSERT_TRUE(window.Create(u"Frame", u"", 0, nullptr));

    EXPECT_EQ(window.SendMessage(BASE_MESSAGE, 40, 2), 42);
    window.SendMessage(OVERRIDDEN_MESSAGE);
    window.SendMessage(WM_COMMAND, COPY_COMMAND);
    window.SendMessage(WM_COMMAND, COPY_COMMAND + 1);
    EXPECT_EQ(window.m_Notes, (Notes{"base", "derived", "copy"}));
}

TEST(WndTest, PostedMessagesWaitForTheLoop)
{
    CNotingWnd window;
    ASSERT_TRUE(window.Create(u"Frame", u"", 0, nullptr));

    EXPECT_TRUE(window.PostMessage(BASE_MESSAGE));
    EXPECT_TRUE(window.m_Notes.empty());
    HandleWaiting();
    EXPECT_EQ(window.m_Notes, (Notes{"base"}));
}

TEST(WndTest, PreTranslateKeepsPostedMessagesFromTheWindow)
{
    CNotingWnd window;
    ASSERT_TRUE(window.Create(u"Frame", u"", 0, nullptr));
    window.m_Swallow = true;

    window.PostMessage(BASE_MESSAGE);
    HandleWaiting();
    EXPECT_TRUE(window.m_Notes.empty());
}

TEST(WndTest, MessagesToAWindowThatIsGoneReachNobody)
{
    CNotingWnd window;
    ASSERT_TRUE(window.Create(u"Frame", u"", 0, nullptr));
    window.PostMessage(BASE_MESSAGE);
    window.DestroyWindow();
    ASSERT_TRUE(window.Create(u"Frame", u"", 0, nullptr)); // a new window, not the one posted to
    HandleWaiting();
    window.DestroyWindow();

    EXPECT_EQ(window.m_Notes, (Notes{"destroy", "destroy"}));
    EXPECT_FALSE(window.PostMessage(BASE_MESSAGE));
    EXPECT_EQ(window.SendMessage(BASE_MESSAGE, 1, 1), 0);
    EXPECT_FALSE(window.DestroyWindow());
}

TEST(WndTest, CloseEndsTheWindowWithItsChildren)
{
    CWnd frame;
    CNotingWnd child;
    ASSERT_TRUE(frame.Create(u"Frame", u"", 0, nullptr));
    ASSERT_TRUE(child.Create(u"Edit", u"", WS_CHILD, &frame));

    frame.SendMessage(WM_CLOSE);
    EXPECT_EQ(frame.GetSafeHwnd(), nullptr);
    EXPECT_EQ(child.GetSafeHwnd(), nullptr);
    EXPECT_EQ(child.m_Notes, (Notes{"destroy"}));
}

TEST(WndTest, ClimbsFromChildrenToTheirTopLevelWindowAndNotToItsOwner)
{
    CWnd frame;
    CWnd tool;
    CWnd panel;
    CWnd edit;
    ASSERT_TRUE(frame.Create(u"Frame", u"", 0, nullptr));
    ASSERT_TRUE(tool.Create(u"Tool", u"", WS_POPUP, &frame));
    ASSERT_TRUE(panel.Create(u"Panel", u"", WS_CHILD, &tool));
    ASSERT_TRUE(edit.Create(u"Edit", u"", WS_CHILD, &panel));

    EXPECT_EQ(edit.GetParent(), &panel);
    EXPECT_EQ(edit.GetTopLevelParent(), &tool);
    EXPECT_EQ(tool.GetOwner(), &frame);
    EXPECT_EQ(tool.GetTopLevelParent(), &tool);
}

// Sees what it sends before its parent does.
class CSelfishControl : public CWnd
{
public:
    UINT m_Kept = 0; // the code that the parent shall not see
    std::vector<UINT> m_Seen;
    bool m_EndsParent = false;

protected:
    bool OnChildNotify(UINT, WPARAM wParam, LPARAM, LRESULT* result) override
    {
        m_Seen.push_back(HIWORD(wParam));
        *result = 5;
        if (m_EndsParent)
            GetParent()->DestroyWindow();
        return HIWORD(wParam) == m_Kept;
    }
};

TEST(WndTest, AControlSeesItsOwnNotesFirstAndMayKeepThem)
{
    CNotingWnd parent;
    CSelfishControl control;
    ASSERT_TRUE(parent.Create(u"Frame", u"", 0, nullptr));
    ASSERT_TRUE(control.Create(u"Edit", u"", WS_CHILD, &parent, COPY_COMMAND));
    const auto tell = [&parent, &control](int code)
    {
        return parent.SendMessage(WM_COMMAND, MAKEWPARAM(COPY_COMMAND, code),
                                  reinterpret_cast<LPARAM>(control.GetSafeHwnd()));
    };
    control.m_Kept = 7;

    EXPECT_EQ(tell(0), 1);
    EXPECT_EQ(tell(7), 5);
    EXPECT_EQ(parent.m_Notes, (Notes{"copy"}));
    control.m_EndsParent = true;
    tell(0);

    EXPECT_EQ(control.m_Seen, (std::vector<UINT>{0, 7, 0}));
    EXPECT_EQ(parent.m_Notes, (Notes{"copy", "destroy"}));
}

TEST(WndTest, AttachMovesAWindowToAnotherObject)
{
    CNotingWnd first;
    CNotingWnd second;
    ASSERT_TRUE(first.Create(u"Frame", u"Parts", 0, nullptr));
    const HWND handle = first.GetSafeHwnd();

    EXPECT_TRUE(second.Attach(handle));
    EXPECT_EQ(first.GetSafeHwnd(), nullptr);
    EXPECT_EQ(CWnd::FromHandle(handle), &second);
    EXPECT_EQ(second.GetWindowText(), u"Parts");

    EXPECT_EQ(second.Detach(), handle);
    EXPECT_EQ(CWnd::FromHandle(handle)->GetWindowText(), u"Parts"); // by an object of nobody's
    EXPECT_TRUE(first.Attach(handle));
    EXPECT_FALSE(second.Attach(nullptr));
}

TEST(WndTest, ShowAndEnableTellTheStateBefore)
{
    CWnd window;
    EXPECT_FALSE(window.EnableWindow(true)); // no window yet
    ASSERT_TRUE(window.Create(u"Frame", u"", 0, nullptr));

    EXPECT_FALSE(window.ShowWindow(SW_SHOW));
    EXPECT_TRUE(window.ShowWindow(SW_HIDE));
    EXPECT_FALSE(window.IsWindowVisible());
    EXPECT_TRUE(window.EnableWindow(false));
    EXPECT_FALSE(window.IsWindowEnabled());
}

} // namespace
} // namespace utility
