#include "frame/AppError.h"
#include "frame/Application.h"
#include "frame/MacroOps.h"
#include "frame/UtilIoOps.h"
#include "platform/base/Point.h"
#include "platform/system/file/StdioFile.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"

#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

constexpr UINT NAMED = 12001;
constexpr UINT UNNAMED = 12002;
constexpr UINT LEADING_LINE_FEED = 12003;
constexpr UINT CLOSED_LINE = 12004;
constexpr UINT DISABLED = 12005;
constexpr UINT NO_TEXT = 12006;
constexpr UINT UNKNOWN = 12999;

constexpr CStringTableEntry TABLE[] = {
    {NAMED, u"Short track\nTrack %1 is short"},
    {UNNAMED, u"Pad %1!d! overlaps"},
    {LEADING_LINE_FEED, u"\nAll of it"},
    {CLOSED_LINE, u"Name\nLine of its own\n"},
    {DISABLED, u"Off\nNever seen"},
    {NO_TEXT, u"Name only\n"},
};

class AppWarningsTest : public testing::Test
{
protected:
    AppWarningsTest()
    {
        CStringTable::AddTable(TABLE);
        CUtilIoOps::InitFunctions(
            nullptr, nullptr, [](UINT id) { return id != DISABLED; }, nullptr, nullptr);
        CAppError::ClearWarnings(true);
    }
    ~AppWarningsTest() override
    {
        CAppError::ClearWarnings(true);
        CUtilIoOps::InitFunctions(nullptr, nullptr, nullptr, nullptr, nullptr);
        CStringTable::RemoveTable(TABLE);
    }

    CScriptedUser m_User;
};

TEST_F(AppWarningsTest, HoldsEachTextOnce)
{
    CAppError::AddWarning(NAMED, u"T1");
    CAppError::AddWarning(NAMED, u"T2");
    CAppError::AddWarning(NAMED, u"T1");
    CAppError::AddWarning(UNNAMED, 7);

    EXPECT_EQ(CAppError::GetWarningCount(), 3);
    EXPECT_EQ(CAppError::GetWarningString(),
              u"Track T1 is short\nTrack T2 is short\nPad 7 overlaps\n");
}

TEST_F(AppWarningsTest, ComparesTextsWithCase)
{
    CAppError::AddWarning(NAMED, u"T1");
    CAppError::AddWarning(NAMED, u"t1");

    EXPECT_EQ(CAppError::GetWarningCount(), 2);
}

TEST_F(AppWarningsTest, TakesNameAndTextApartAtTheFirstLineFeed)
{
    const struct
    {
        UINT m_Id;
        const char16_t* m_Name;
        const char16_t* m_Held;
    } rows[] = {
        {NAMED, u"Short track", u"Track a is short\n"},
        {LEADING_LINE_FEED, u"\nAll of it", u"\nAll of it\n"},
        {CLOSED_LINE, u"Name", u"Line of its own\n"},
        {NO_TEXT, u"Name only", u""},
        {UNKNOWN, u"", u""},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Id);
        CAppError::ClearWarnings(true);
        CAppError::AddWarning(row.m_Id, u"a");
        EXPECT_EQ(CAppError::GetWarningName(row.m_Id), row.m_Name);
        EXPECT_EQ(CAppError::GetWarningString(), row.m_Held);
        EXPECT_EQ(CAppError::GetLastWarning(), row.m_Id); // also of an empty text
    }
}

TEST_F(AppWarningsTest, DisabledOnesLeaveNoTraceAndTestingDisablesAll)
{
    CAppError::AddWarning(NAMED, u"a");
    CAppError::AddWarning(DISABLED);
    CApplication::IsTesting(true);
    CAppError::AddWarning(UNNAMED, 1);
    CApplication::IsTesting(false);

    EXPECT_EQ(CAppError::GetWarningCount(), 1);
    EXPECT_EQ(CAppError::GetLastWarning(), NAMED);
}

TEST_F(AppWarningsTest, LockHoldsBackClearingAndShowingNotCollecting)
{
    {
        const CWarningLock lock;
        CAppError::AddWarning(NAMED, u"a");
        CAppError::ClearWarnings(false);
        EXPECT_EQ(CAppError::GetWarningCount(), 1);
        EXPECT_TRUE(CAppError::ReportWarnings(false, 0, nullptr, nullptr, nullptr));
        EXPECT_TRUE(m_User.GetWarnings().empty());

        CAppError::ClearWarnings(true);
        EXPECT_EQ(CAppError::GetWarningCount(), 0);
        CAppError::AddWarning(NAMED, u"a"); // forgotten, so new again
    }
    EXPECT_TRUE(CAppError::ReportWarnings(false, 0, nullptr, nullptr, nullptr));
    EXPECT_EQ(m_User.GetWarnings().size(), 1U);
    EXPECT_EQ(CAppError::GetLastWarning(), NAMED);
}

TEST_F(AppWarningsTest, ShowsThemTogetherAndForgetsThem)
{
    CAppError::AddWarning(NAMED, u"a");
    m_User.WillAnswer(IDCANCEL);
    EXPECT_FALSE(CAppError::ReportWarnings(true, 5, nullptr, nullptr, nullptr));
    CAppError::AddWarning(NAMED, u"a");
    CAppError::AddWarning(NAMED, u"b");
    EXPECT_TRUE(CAppError::ReportWarningsYesNo(0, nullptr, nullptr, nullptr));

    const auto& shown = m_User.GetWarnings();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].m_Text, u"Track a is short\n");
    EXPECT_EQ(shown[0].m_WarningId, NAMED); // one alone can be switched off
    EXPECT_TRUE(shown[0].m_ShowCancel);
    EXPECT_EQ(shown[0].m_HelpId, 5U);
    EXPECT_EQ(shown[1].m_Count, 2);
    EXPECT_EQ(shown[1].m_WarningId, 0U);
    EXPECT_TRUE(shown[1].m_AsQuestion);
    EXPECT_EQ(CAppError::GetWarningCount(), 0);
}

TEST_F(AppWarningsTest, NothingToShowIsFineButNothingToWriteIsNot)
{
    EXPECT_TRUE(CAppError::ReportWarnings(true, 0, nullptr, nullptr, nullptr));
    EXPECT_TRUE(CAppError::ReportWarningsYesNo(0, nullptr, nullptr, nullptr));
    EXPECT_FALSE(CAppError::ReportWarnings(nullptr, true));
    EXPECT_TRUE(m_User.GetWarnings().empty());
}

TEST_F(AppWarningsTest, WritesAsManyBytesAsTheTextHasUnits)
{
    const CTemporaryFolder folder;
    CAppError::AddWarning(UNNAMED, 7); // "Pad 7 overlaps" and a line end of two units: 16
    CStdioFile file;
    ASSERT_TRUE(
        file.Open(folder.PathOf(u"w.txt"), CFile::modeWrite | CFile::modeCreate | CFile::typeText));
    EXPECT_TRUE(CAppError::ReportWarnings(&file, true));
    file.Close();

    EXPECT_EQ(folder.Read(u"w.txt"), std::string("P\0a\0d\0 \0007\0 \0o\0v\0", 16));
    EXPECT_EQ(CAppError::GetWarningCount(), 0);
}

TEST_F(AppWarningsTest, AMacrosAnswerLeavesThemHeld)
{
    CMacroOps::InitFunctions([](const CString*, int*) { return true; },
                             [](const CString* caption, int* result)
                             {
                                 *result = *caption == u"Warning" ? IDCANCEL : IDOK;
                                 return true;
                             },
                             [](CPoint*, bool*) { return false; }, [](CPoint*) {},
                             [](UINT) { return false; }, [](UINT) { return false; },
                             [](int, UINT, CPoint) {}, [](bool) { return false; },
                             [] { return false; });
    CMacroOps::SetReplaying(true);
    CAppError::AddWarning(NAMED, u"a");
    EXPECT_FALSE(CAppError::ReportWarnings(false, 0, nullptr, nullptr, nullptr));
    CMacroOps::SetReplaying(false);

    EXPECT_EQ(CAppError::GetWarningCount(), 1);
    EXPECT_TRUE(m_User.GetWarnings().empty());
}

} // namespace
} // namespace utility
