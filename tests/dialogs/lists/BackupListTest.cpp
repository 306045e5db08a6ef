#include "dialogs/lists/ListTabStops.h"
#include "files/FilePath.h"
#include "files/backup/BackupFiles.h"
#include "files/backup/BackupFixture.h"
#include "platform/base/Rect.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ListBox.h"
#include "text/SortedList.h"

namespace utility
{
namespace
{

using BackupListTest = CBackupFixture;

TEST_F(BackupListTest, ShowsTheCopiesBelowAHeadingAndGivesTheirPaths)
{
    CWnd dialog;
    CListBox list;
    ASSERT_TRUE(dialog.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 500, 300}, nullptr));
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LBS_SORT | LBS_USETABSTOPS, {0, 0, 400, 200},
                            &dialog, 1));
    list.AddString(u"left over");
    const CString older = MakeCopy(u"Security Copy of board.pcb", 20);
    const CString newer = MakeCopy(u"Backup Copy of board.pcb", 10);
    CSortedList files;

    CBackupFiles::FillList(list, files, CFilePath(m_Design), true, true, true, false);

    ASSERT_EQ(list.GetCount(), 3);
    CString heading;
    list.GetText(0, heading);
    EXPECT_EQ(heading, u"Name\tDate/Time\tSize");
    EXPECT_EQ(CBackupFiles::GetPathFromList(list, 1), older);
    EXPECT_EQ(CBackupFiles::GetPathFromList(list, 2), newer);
    for (const int none : {0, -1, 3})
        EXPECT_EQ(CBackupFiles::GetPathFromList(list, none), u"") << none;
    CBackupFiles::FreeList(files);
}

TEST(ListTabStopsTest, BeginsEachColumnBehindTheWidestTextOfTheOneBefore)
{
    const auto getWidth = [](const CString& text)
    {
        return 10 * text.GetLength();
    };
    struct CCase
    {
        const char* m_Name;
        std::vector<CString> m_Rows;
        std::vector<int> m_Stops;
    };
    const CCase cases[] = {
        {"no rows", {}, {}},
        {"one column", {u"abc", u"defgh"}, {}},
        {"three columns", {u"a\tbb\tccccc", u"aaa\tb\tc"}, {30 + 16, 30 + 16 + 20 + 16}},
        {"rows of different lengths", {u"a", u"aa\tb\tc", u"aaaaaaa\tb"}, {86, 86 + 26}},
        {"empty texts", {u"\t\tx"}, {16, 32}},
    };

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(PlanTabStops(row.m_Rows, getWidth), row.m_Stops);
    }
}

} // namespace
} // namespace utility
