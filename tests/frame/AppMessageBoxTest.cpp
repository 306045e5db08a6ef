#include "frame/AppMessageBox.h"

#include "frame/AppError.h"
#include "frame/Application.h"
#include "frame/MacroOps.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "resources/MessageNames.h"
#include "resources/StringIds.h"

#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

class AppMessageBoxTest : public testing::Test
{
protected:
    AppMessageBoxTest() { CApplication::SetName(u"Parts"); }
    ~AppMessageBoxTest() override
    {
        CApplication::SetName(u"");
        CApplication::SetMainWnd(nullptr);
        CAppError::SetLastError(0);
    }

    CScriptedUser m_User;
};

/// A main window that notes the tool windows whose boxes begin and end.
class CMainWnd : public CWnd
{
public:
    std::vector<std::string> m_Notes;
    CWnd* m_Tool = nullptr;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const bool isTool = m_Tool && wParam == reinterpret_cast<WPARAM>(m_Tool->GetSafeHwnd());
        if (message == MSG_START_MODAL_WINDOW && isTool)
            m_Notes.push_back("start");
        if (message == MSG_END_MODAL_WINDOW && isTool)
            m_Notes.push_back("end");
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

TEST_F(AppMessageBoxTest, ShowsTextUnderTheProgramsName)
{
    m_User.WillAnswer(IDYES);
    EXPECT_EQ(CAppMessageBox::Show(u"<None> stays as typed", MB_YESNO, 77), IDYES);
    EXPECT_EQ(CAppMessageBox::Show(IDS_UNDEFINED_ERROR, MB_OK, 0), IDOK);

    const std::vector<CBoxRequest> boxes = m_User.GetBoxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].m_Text, u"<None> stays as typed");
    EXPECT_EQ(boxes[0].m_Caption, u"Parts");
    EXPECT_EQ(boxes[0].m_HelpId, 77U);
    EXPECT_EQ(boxes[1].m_Text, u"Undefined error");
}

TEST_F(AppMessageBoxTest, LockedBoxesAnswerZeroUntilAsManyUnlocks)
{
    CAppMessageBox::Lock(true);
    CAppMessageBox::Lock(true);
    CAppMessageBox::Lock(false);
    EXPECT_EQ(CAppMessageBox::Show(u"held", MB_YESNO, 0), 0);
    CAppMessageBox::Lock(false);
    CAppMessageBox::Lock(false); // one too many does no harm
    EXPECT_EQ(CAppMessageBox::Show(u"shown", MB_OK, 0), IDOK);

    EXPECT_EQ(m_User.GetOnlyText(), u"shown");
}

TEST_F(AppMessageBoxTest, ADeclinedYesNoClearsTheLastError)
{
    const struct
    {
        const char* m_Name;
        UINT m_Type;
        int m_Answer;
        bool m_Clears;
    } rows[] = {
        {"Yes/No, No", MB_YESNO | MB_ICONQUESTION, IDNO, true},
        {"Yes/No, Yes", MB_YESNO, IDYES, false},
        {"Yes/No/Cancel, No", MB_YESNOCANCEL, IDNO, false}, // has not the bit
        {"OK", MB_OK, IDOK, false},
    };
    CWnd tool;
    ASSERT_TRUE(tool.Create(u"Tool", u"", WS_POPUP, nullptr));
    for (CWnd* parent : {static_cast<CWnd*>(nullptr), &tool})
    {
        for (const auto& row : rows)
        {
            SCOPED_TRACE(std::string(row.m_Name) + (parent ? " over a tool window" : ""));
            CAppError::SetLastError(IDS_UNDEFINED_ERROR);
            m_User.WillAnswer(row.m_Answer);
            EXPECT_EQ(CAppMessageBox::Show(parent, u"?", row.m_Type), row.m_Answer);
            EXPECT_EQ(CAppError::GetLastError(), row.m_Clears ? 0U : IDS_UNDEFINED_ERROR);
        }
    }
}

TEST_F(AppMessageBoxTest, OverAToolWindowTellsTheMainWindowAndAddsAnIcon)
{
    CMainWnd mainWindow;
    CWnd tool;
    CWnd child;
    ASSERT_TRUE(mainWindow.Create(u"Frame", u"", 0, nullptr));
    ASSERT_TRUE(tool.Create(u"Tool", u"", WS_POPUP, &mainWindow));
    ASSERT_TRUE(child.Create(u"Edit", u"", WS_CHILD, &tool));
    mainWindow.m_Tool = &tool;
    CApplication::SetMainWnd(&mainWindow);
    const UINT types[] = {MB_OK,    MB_OKCANCEL,    MB_YESNOCANCEL,
                          MB_YESNO, MB_RETRYCANCEL, MB_YESNO | MB_ICONHAND};
    const UINT icons[] = {
        MB_ICONEXCLAMATION, MB_ICONEXCLAMATION, MB_ICONQUESTION, MB_ICONQUESTION, 0, MB_ICONHAND};
    for (const UINT type : types)
        CAppMessageBox::Show(&child, u"?", type);

    const std::vector<CBoxRequest> boxes = m_User.GetBoxes();
    ASSERT_EQ(boxes.size(), std::size(types));
    for (std::size_t i = 0; i < boxes.size(); ++i)
        EXPECT_EQ(boxes[i].m_Type & MB_ICONMASK, icons[i]) << types[i];
    EXPECT_EQ(mainWindow.m_Notes.size(), 2 * std::size(types));
    EXPECT_EQ(mainWindow.m_Notes[0], "start");
    EXPECT_EQ(mainWindow.m_Notes[1], "end");
    EXPECT_TRUE(tool.IsWindowEnabled());
}

TEST_F(AppMessageBoxTest, OverTheMainWindowIsThePlainForm)
{
    CMainWnd mainWindow;
    ASSERT_TRUE(mainWindow.Create(u"Frame", u"", 0, nullptr));
    CApplication::SetMainWnd(&mainWindow);
    CAppMessageBox::Show(&mainWindow, IDS_UNDEFINED_ERROR, MB_OK);

    EXPECT_EQ(m_User.GetBoxes().at(0).m_Type, MB_OK); // no icon added
    EXPECT_TRUE(mainWindow.m_Notes.empty());
}

/// A user interface that fails at every box.
class CFailingUser : public CScriptedUser
{
public:
    int ShowBox(const CBoxRequest& request) override { throw request.m_Text; }
};

TEST_F(AppMessageBoxTest, AnExceptionPassesOnAndLeavesTheToolWindowFree)
{
    CMainWnd mainWindow;
    CWnd tool;
    ASSERT_TRUE(mainWindow.Create(u"Frame", u"", 0, nullptr));
    ASSERT_TRUE(tool.Create(u"Tool", u"", WS_POPUP, &mainWindow));
    mainWindow.m_Tool = &tool;
    CApplication::SetMainWnd(&mainWindow);
    {
        const CFailingUser user;
        EXPECT_THROW(CAppMessageBox::Show(&tool, u"?", MB_OK), CString);
        EXPECT_THROW(CAppMessageBox::Show(u"?", MB_OK, 0), CString);
    }

    EXPECT_TRUE(tool.IsWindowEnabled());
    EXPECT_EQ(mainWindow.m_Notes, (std::vector<std::string>{"start", "end"}));
    EXPECT_EQ(CAppMessageBox::Show(&tool, u"?", MB_OK), IDOK);
}

TEST_F(AppMessageBoxTest, AHookThatThrowsHarmsNoLaterBox)
{
    const auto fail = [](const CString*, int*) -> bool
    {
        throw 1;
    };
    CMacroOps::InitFunctions(fail, fail, {}, {}, {}, {}, {}, {}, {});
    CMacroOps::SetReplaying(true);
    EXPECT_THROW(CAppMessageBox::Show(u"replayed", MB_OK, 0), int);
    CMacroOps::SetReplaying(false);
    CMacroOps::SetRecording(true);
    EXPECT_THROW(CAppMessageBox::Show(u"recorded", MB_OK, 0), int);
    CMacroOps::SetRecording(false);

    EXPECT_EQ(CAppMessageBox::Show(u"plain", MB_OK, 0), IDOK);
    EXPECT_EQ(m_User.GetBoxes().size(), 2U);
    const auto answerNothing = [](const CString*, int*)
    {
        return false;
    };
    CMacroOps::InitFunctions(answerNothing, answerNothing, {}, {}, {}, {}, {}, {}, {});
}

} // namespace
} // namespace utility
