#include "frame/AppError.h"

#include "frame/Application.h"
#include "frame/MacroOps.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/base/Point.h"
#include "platform/system/SystemMessage.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"

#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

namespace utility
{

/// Stands in for a control that the core knows by name alone.
class CEdit
{
};

namespace
{

constexpr UINT UNKNOWN_ID = 60000;

class AppErrorTest : public testing::Test
{
protected:
    AppErrorTest() { CAppError::SetLastError(0); }
    ~AppErrorTest() override { CAppError::SetLastError(0); }

    CScriptedUser m_User;
};

TEST_F(AppErrorTest, RecordsIdTextAndSystemCode)
{
    CAppError::SetLastError(IDS_FILE_READ_ONLY, CString(u"/work.pcb"));

    EXPECT_EQ(CAppError::GetLastError(), IDS_FILE_READ_ONLY);
    EXPECT_EQ(CAppError::GetLastErrorString(),
              u"File \"/work.pcb\" is read-only and cannot be written.");
    EXPECT_EQ(GetLastError(), IDS_FILE_READ_ONLY);
}

TEST_F(AppErrorTest, ZeroForgetsTextAndSystemCode)
{
    CAppError::SetLastError(IDS_UNDEFINED_ERROR);
    CAppError::SetLastError(0);

    EXPECT_EQ(CAppError::GetLastErrorString(), u"");
    EXPECT_EQ(GetLastError(), 0U);
}

TEST_F(AppErrorTest, WordsANewerSystemFailureAndKeepsTheRecord)
{
    CAppError::SetLastError(IDS_UNDEFINED_ERROR);
    SetLastError(ERROR_ACCESS_DENIED);

    EXPECT_EQ(CAppError::GetLastErrorString(), GetSystemMessage(ERROR_ACCESS_DENIED));
    EXPECT_NE(CAppError::GetLastErrorString(), u"");
    EXPECT_EQ(CAppError::GetLastError(), IDS_UNDEFINED_ERROR);

    SetLastError(0); // cleared is not newer
    EXPECT_EQ(CAppError::GetLastErrorString(), u"Undefined error");
}

TEST_F(AppErrorTest, PutsASavedPairBackWithoutWording)
{
    CAppError::ResetLastError(IDS_FILE_READ_ONLY, u"100 % kept");

    EXPECT_EQ(CAppError::GetLastError(), IDS_FILE_READ_ONLY);
    EXPECT_EQ(CAppError::GetLastErrorString(), u"100 % kept");
}

TEST_F(AppErrorTest, WordsTableEntriesBeforeSystemCodes)
{
    static constexpr CStringTableEntry TABLE[] = {{ERROR_FILE_NOT_FOUND, u"No such part: %1!03d!"}};
    const CString systemWords = CAppError::GetErrorString(ERROR_FILE_NOT_FOUND);
    CStringTable::AddTable(TABLE);
    const CString tableWords = CAppError::GetErrorString(ERROR_FILE_NOT_FOUND, 7);
    CStringTable::RemoveTable(TABLE);

    EXPECT_EQ(tableWords, u"No such part: 007");
    EXPECT_EQ(systemWords, GetSystemMessage(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(CAppError::GetErrorString(UNKNOWN_ID), u"");
}

TEST_F(AppErrorTest, ShowsOneBoxOverTheActiveWindowOrElseTheMainWindow)
{
    CWnd mainWindow;
    CWnd active;
    CApplication::SetMainWnd(&mainWindow);
    ReportError(IDS_CANNOT_OPEN_WARNINGS_FILE, u"a.txt");
    m_User.SetActiveWindow(&active);
    ReportError(CString(u"plain"));
    CApplication::SetMainWnd(nullptr);

    const std::vector<CBoxRequest> boxes = m_User.GetBoxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].m_Text, u"Failed to open warnings report file 'a.txt'.");
    EXPECT_EQ(boxes[0].m_Caption, u"Error");
    EXPECT_EQ(boxes[0].m_Type, MB_OK | MB_ICONEXCLAMATION);
    EXPECT_EQ(boxes[0].m_Owner, &mainWindow);
    EXPECT_EQ(boxes[1].m_Owner, &active);
    EXPECT_EQ(CAppError::GetLastError(), 0U); // a report does not record
}

TEST_F(AppErrorTest, ShowsNothingForAnEmptyText)
{
    CAppError::ReportError(UNKNOWN_ID);
    CAppError::ReportLastError();

    EXPECT_TRUE(m_User.GetBoxes().empty());
}

TEST_F(AppErrorTest, LockedReportsOnlyRecordUntilTheLastLockGoes)
{
    {
        const CErrorLock outer;
        {
            const CErrorLock inner;
            CAppError::ReportError(IDS_FILE_READ_ONLY, u"x");
        }
        EXPECT_EQ(CAppError::GetLastError(), IDS_FILE_READ_ONLY);

        CAppError::ReportError(CString(u"90 %1 %n"));
        EXPECT_EQ(CAppError::GetLastError(), IDS_PLAIN_TEXT);
        EXPECT_EQ(CAppError::GetLastErrorString(), u"90 %1 %n");

        CAppError::ReportLastError();
        EXPECT_TRUE(m_User.GetBoxes().empty());
    }
    EXPECT_TRUE(CAppError::AreErrorsUnlocked());
    CAppError::ReportLastError();
    EXPECT_EQ(m_User.GetOnlyText(), u"90 %1 %n");
}

TEST_F(AppErrorTest, ReselectsTheEditOnlyIfABoxFollows)
{
    CEdit edit;
    {
        const CErrorLock lock;
        ReportError(edit, IDS_UNDEFINED_ERROR);
    }
    EXPECT_EQ(m_User.CountReselected(), 0);

    SetLastError(ERROR_ACCESS_DENIED);
    ReportError(edit, IDS_UNDEFINED_ERROR);
    EXPECT_EQ(m_User.CountReselected(), 1);
    EXPECT_EQ(m_User.GetOnlyText(), u"Undefined error");
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

} // namespace
} // namespace utility
