#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/UserInterface.h"
#include "platform/system/window/WinApp.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"

#include "support/ui/RealUser.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <thread>

namespace utility
{
namespace
{

/// Real boxes, which a script answers as soon as they are shown.
class BoxTest : public testing::Test
{
protected:
    /// Shows a box and does something with it; its answer.
    int AskWith(const CBoxRequest& request, std::function<void(QMessageBox&)> act)
    {
        const auto whileShown = [act = std::move(act)]
        {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            act(*box);
        };
        GetMessageLoop().Post(whileShown);
        return GetUserInterface().ShowBox(request);
    }
    static CBoxRequest Request(UINT type) { return {nullptr, u"Save <None>?", u"Host", type, 0}; }

    CRealUser m_User;
};

TEST_F(BoxTest, EnterGivesTheDefaultButtonAndEscapeCancelsWhatCanBe)
{
    const struct
    {
        UINT m_Type;
        int m_Enter;
        int m_Escape; // 0: the box stays
    } rows[] = {
        {MB_OK, IDOK, IDOK},
        {MB_OKCANCEL, IDOK, IDCANCEL},
        {MB_OKCANCEL | MB_DEFBUTTON2, IDCANCEL, IDCANCEL},
        {MB_ABORTRETRYIGNORE | MB_DEFBUTTON3, IDIGNORE, 0},
        {MB_YESNOCANCEL | MB_DEFBUTTON2, IDNO, IDCANCEL},
        {MB_YESNO | MB_ICONQUESTION, IDYES, 0},
        {MB_RETRYCANCEL, IDRETRY, IDCANCEL},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Type);
        const auto press = [](QMessageBox& box)
        {
            QTest::keyClick(box.defaultButton(), Qt::Key_Return);
        };
        const auto escape = [&](QMessageBox& box)
        {
            QTest::keyClick(&box, Qt::Key_Escape);
            EXPECT_EQ(box.isVisible(), row.m_Escape == 0);
            if (row.m_Escape == 0)
                press(box);
        };
        EXPECT_EQ(AskWith(Request(row.m_Type), press), row.m_Enter);
        EXPECT_EQ(AskWith(Request(row.m_Type), escape), row.m_Escape ? row.m_Escape : row.m_Enter);
    }
}

TEST_F(BoxTest, ShowsCaptionIconAndPlainText)
{
    const auto look = [](QMessageBox& box)
    {
        EXPECT_EQ(box.text(), "Save <None>?");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "Host");
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        QTest::mouseClick(box.buttons().at(0), Qt::LeftButton);
    };
    EXPECT_EQ(AskWith(Request(MB_ICONEXCLAMATION), look), IDOK);
}

/// A window that notes what help it is asked for.
class CHelpWnd : public CWnd
{
public:
    WPARAM m_Asked = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_HELP)
            m_Asked = wParam;
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

TEST_F(BoxTest, HelpAsksTheOwnerAndLeavesTheBoxOpen)
{
    CHelpWnd owner;
    ASSERT_TRUE(owner.Create(u"Frame", u"Host", WS_VISIBLE, nullptr));
    const auto press = [&](QMessageBox& box)
    {
        EXPECT_EQ(box.parentWidget()->windowTitle(), "Host");
        for (QAbstractButton* button : box.buttons())
        {
            if (box.buttonRole(button) == QMessageBox::HelpRole)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        EXPECT_TRUE(box.isVisible());
        EXPECT_EQ(owner.m_Asked, 5150U);
        QTest::keyClick(&box, Qt::Key_Escape);
    };
    EXPECT_EQ(AskWith({&owner, u"Stop?", u"Host", MB_OKCANCEL, 5150}, press), IDCANCEL);
}

TEST_F(BoxTest, AWorkersBoxIsShownByTheMainThread)
{
    std::atomic<int> answer = 0;
    std::thread worker(
        [&]
        {
            answer = GetUserInterface().ShowBox(Request(MB_YESNO));
            GetMessageLoop().WakeUp();
        });
    const UINT timer = GetMessageLoop().SetTimer(
        1,
        []
        {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                QTest::mouseClick(box->buttons().at(1), Qt::LeftButton);
        });
    GetMessageLoop().RunUntil([&] { return answer != 0; }, 60000);
    worker.join();
    GetMessageLoop().KillTimer(timer);

    EXPECT_EQ(answer, IDNO);
}

TEST_F(BoxTest, TasksAndTimersGoOnBehindABox)
{
    int ticks = 0;
    const UINT timer = GetMessageLoop().SetTimer(1, [&] { ++ticks; });
    const auto wait = [&](QMessageBox& box)
    {
        EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return ticks >= 3; }, 60000));
        QTest::keyClick(&box, Qt::Key_Escape);
    };
    EXPECT_EQ(AskWith(Request(MB_OKCANCEL), wait), IDCANCEL);
    GetMessageLoop().KillTimer(timer);
}

TEST_F(BoxTest, WarningsComeAsOneBoxWhoseReportLeavesItOpen)
{
    int reports = 0;
    CWarningsRequest request;
    request.m_Count = 2;
    request.m_Text = u"Net A is open\nNet B is open\n";
    request.m_AsQuestion = true;
    request.m_ReportFn = [](void* count)
    {
        ++*static_cast<int*>(count);
    };
    request.m_ReportArg = &reports;
    const auto answer = []
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        for (QAbstractButton* button : box->buttons())
        {
            if (box->buttonRole(button) == QMessageBox::HelpRole)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QTest::mouseClick(box->buttons().at(0), Qt::LeftButton);
    };
    GetMessageLoop().Post(answer);

    EXPECT_EQ(GetUserInterface().ShowWarnings(request), IDOK);
    EXPECT_EQ(reports, 1);
}

TEST_F(BoxTest, TheClipboardHoldsTextAndTheWaitCursorCounts)
{
    IUserInterface& user = GetUserInterface();
    CString text = u"preset";
    ASSERT_TRUE(user.SetClipboardText(u"10 \u03A9"));
    EXPECT_TRUE(user.GetClipboardText(text));
    EXPECT_EQ(text, u"10 \u03A9");

    user.BeginWaitCursor();
    user.BeginWaitCursor();
    user.EndWaitCursor();
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    user.EndWaitCursor();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(BoxTest, ProgressIsCancelledByItsButtonAndHoldsTasksBack)
{
    IUserInterface& user = GetUserInterface();
    bool hasRun = false;
    GetMessageLoop().Post([&] { hasRun = true; });
    user.BeginProgress(u"Reading", std::int64_t{1} << 40);
    user.StepProgress(std::int64_t{1} << 39);
    EXPECT_FALSE(hasRun);
    EXPECT_FALSE(user.IsProgressCancelled());

    auto* cancel = QApplication::activeModalWidget()->findChild<QPushButton*>();
    ASSERT_NE(cancel, nullptr);
    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_TRUE(user.IsProgressCancelled());
    user.EndProgress();
    EXPECT_FALSE(user.IsProgressCancelled());
    GetMessageLoop().HandleWaiting();
    EXPECT_TRUE(hasRun);
}

TEST_F(BoxTest, AFileThatIsNotThereIsNotEdited)
{
    EXPECT_FALSE(GetUserInterface().EditFile(u"\\no\\such\\file.txt"));
}

} // namespace
} // namespace utility
