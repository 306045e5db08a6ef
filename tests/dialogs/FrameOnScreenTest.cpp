// What frame and files ask of a person, on real windows.

#include "dialogs/controls/EditCtrl.h"
#include "files/FilePath.h"
#include "files/FileTools.h"
#include "frame/AppError.h"
#include "frame/AppMessageBox.h"
#include "frame/Application.h"
#include "frame/MacroOps.h"
#include "platform/base/Rect.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/controls/Static.h"
#include "resources/MessageNames.h"
#include "resources/StringIds.h"

#include "support/SettingsSandbox.h"
#include "support/TemporaryFolder.h"
#include "support/ui/RealUser.h"
#include "support/ui/Widgets.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include <functional>

namespace utility
{
namespace
{

class CHostWnd : public CWnd
{
public:
    std::vector<UINT> m_Notes; // of boxes over tool windows

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == MSG_START_MODAL_WINDOW || message == MSG_END_MODAL_WINDOW)
            m_Notes.push_back(message);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

// A host with a main window, whose boxes a script answers as soon as they are shown.
class FrameOnScreenTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(
            m_Main.CreateEx(0, u"Frame", u"Board:PCB", WS_CAPTION, {0, 0, 300, 200}, nullptr));
        m_Main.ShowWindow(SW_SHOWNORMAL);
        CApplication::SetMainWnd(&m_Main);
        Settle();
    }
    void TearDown() override
    {
        CApplication::SetMainWnd(nullptr);
        EXPECT_EQ(m_Texts.size(), m_Answered) << "a box was expected and did not come";
    }
    enum EButton
    {
        First, // OK or Yes
        Second // No
    };
    /// Answers the next box by one of its buttons, having looked around.
    void WillAnswer(EButton button, std::function<void()> look = {})
    {
        ++m_Answered;
        GetMessageLoop().Post(
            [this, button, look = std::move(look)]
            {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                if (!box)
                    return;
                m_Texts.push_back(box->text().toStdString());
                if (look)
                    look();
                QTest::mouseClick(box->buttons().at(button), Qt::LeftButton);
            });
    }

    const CSettingsSandbox m_Settings;
    CRealUser m_User;
    CHostWnd m_Main;
    std::vector<std::string> m_Texts;
    std::size_t m_Answered = 0;
};

TEST_F(FrameOnScreenTest, AnErrorOfAnEditSelectsItsTextAndGivesItTheFocus)
{
    CEditCtrl edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, {10, 10, 150, 35}, &m_Main, 1));
    edit.SetWindowText(u"12 mmm");
    WillAnswer(First);

    ReportError(edit, IDS_UNDEFINED_ERROR);

    int first = 0;
    int last = 0;
    edit.GetSel(first, last);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(last, 6);
    EXPECT_EQ(FindWidget(m_Main).focusWidget(), &FindWidget(edit)) << "once the box has gone";
    EXPECT_EQ(m_Texts, (std::vector<std::string>{"Undefined error"}));
}

TEST_F(FrameOnScreenTest, LockedErrorsLeaveTheEditAlone)
{
    CEditCtrl edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, {10, 10, 150, 35}, &m_Main, 1));
    edit.SetWindowText(u"12 mmm");
    edit.SetSel(2, 3);
    const CErrorLock lock;

    ReportError(edit, IDS_UNDEFINED_ERROR);

    int first = 0;
    int last = 0;
    edit.GetSel(first, last);
    EXPECT_EQ(first, 2);
    EXPECT_EQ(CAppError::GetLastError(), UINT{IDS_UNDEFINED_ERROR});
}

TEST_F(FrameOnScreenTest, ABoxOverAToolWindowKeepsItWaiting)
{
    CWnd tool;
    ASSERT_TRUE(
        tool.CreateEx(WS_EX_TOOLWINDOW, u"Tool", u"", WS_POPUP, {50, 50, 250, 150}, &m_Main));
    tool.ShowWindow(SW_SHOWNORMAL);
    bool wasEnabled = true;
    WillAnswer(Second, [&] { wasEnabled = tool.IsWindowEnabled(); });

    EXPECT_EQ(CAppMessageBox::Show(&tool, u"Delete the net?", MB_YESNO), IDNO);

    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(tool.IsWindowEnabled());
    EXPECT_EQ(m_Main.m_Notes, (std::vector<UINT>{MSG_START_MODAL_WINDOW, MSG_END_MODAL_WINDOW}));
}

TEST_F(FrameOnScreenTest, AFolderIsMadeOnlyIfTheUserSaysSo)
{
    const CTemporaryFolder folder;
    const CString path = folder.PathOf(u"Reports");
    CString full;

    WillAnswer(Second);
    EXPECT_FALSE(CFilePath::AskCreateDirectory(path, full));
    EXPECT_FALSE(CFilePath::DoesFolderExist(path));
    WillAnswer(First);
    EXPECT_TRUE(CFilePath::AskCreateDirectory(path, full));
    EXPECT_TRUE(CFilePath::DoesFolderExist(path));
    EXPECT_TRUE(CFilePath::AskCreateDirectory(path, full)) << "and without a question now";
}

TEST_F(FrameOnScreenTest, AReadOnlyFileIsOverwrittenOnlyIfTheUserSaysSo)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"board.pcb", "the design");
    ASSERT_TRUE(SetFileReadOnly(path, true));

    WillAnswer(Second);
    EXPECT_FALSE(MakeFileWriteable(path));
    EXPECT_FALSE(IsFileWriteable(path));
    WillAnswer(First);
    EXPECT_TRUE(MakeFileWriteable(path));
    EXPECT_TRUE(IsFileWriteable(path));
}

TEST_F(FrameOnScreenTest, APathIsSqueezedToWhatALabelShows)
{
    CStatic label;
    ASSERT_TRUE(label.Create(u"", WS_CHILD | WS_VISIBLE, {10, 10, 250, 30}, &m_Main, 1));
    const CString path = u"C:\\Designs\\Amplifiers\\Output stages\\Version 3\\Boards\\stage.pcb";
    CString squeezed = path;

    CFilePath::Squeeze(squeezed, 0, &label);
    EXPECT_LT(squeezed.GetLength(), path.GetLength());
    EXPECT_EQ(squeezed.Find(u"stage.pcb"), 0);
    EXPECT_GT(squeezed.Find(u"..."), 0);
}

TEST_F(FrameOnScreenTest, AMacroAnswersInPlaceOfTheScreen)
{
    static std::vector<int> recorded;
    recorded.clear();
    const auto record = [](const CString*, int* result)
    {
        recorded.push_back(*result);
        return true;
    };
    const auto replay = [](const CString*, int* result)
    {
        *result = recorded.front();
        return true;
    };
    CMacroOps::InitFunctions(record, replay, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                             nullptr);
    CMacroOps::SetRecording(true);
    WillAnswer(First);
    EXPECT_EQ(CAppMessageBox::Show(u"Delete the net?", MB_YESNO, 0), IDYES);
    CMacroOps::SetRecording(false);
    EXPECT_EQ(recorded, (std::vector<int>{IDYES}));

    CMacroOps::SetReplaying(true);
    EXPECT_EQ(CAppMessageBox::Show(u"Delete the net?", MB_YESNO, 0), IDYES);
    CMacroOps::SetReplaying(false);
    EXPECT_EQ(m_Texts.size(), 1u) << "the second one was not shown";
}

} // namespace
} // namespace utility
