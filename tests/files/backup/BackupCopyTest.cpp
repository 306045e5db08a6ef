#include "files/backup/BackupCopy.h"

#include "files/AppFolder.h"
#include "files/FilePath.h"
#include "files/backup/BackupFixture.h"
#include "frame/AppError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/File.h"
#include "resources/StringIds.h"

#include "support/ChildProcess.h"
#include "support/EnvironmentVariable.h"
#include "support/SystemCallFault.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

using namespace utility;

namespace
{

class BackupCopyTest : public CBackupFixture
{
protected:
    bool Make(EBackupKind kind = EBackupKind::Backup, const CString& label = CString())
    {
        return CBackupCopy::Make(kind, m_Design, label, m_Made);
    }

    CString m_Made;
};

TEST_F(BackupCopyTest, EachKindIsCopiedToItsName)
{
    const CString label = u"before a/b";
    EXPECT_TRUE(Make());
    EXPECT_EQ(m_Made, m_Folder.PathOf(u"Backup Copy of board.pcb"));
    EXPECT_TRUE(Make(EBackupKind::SecurityCopy));
    EXPECT_TRUE(Make(EBackupKind::RestorePoint, label));

    EXPECT_EQ(m_Folder.List(),
              (std::vector<std::string>{"Backup Copy of board.pcb",
                                        "Restore Point for board (before a-b).pcb",
                                        "Security Copy of board.pcb", "board.pcb"}));
    for (const std::string& name : m_Folder.List())
        EXPECT_EQ(m_Folder.Read(CString(name.c_str())), DESIGN_BYTES) << name;
}

TEST_F(BackupCopyTest, ACopyHasTheRightsOfTheDesignAndCanMakeRoom)
{
    namespace fs = std::filesystem;
    const fs::path design = m_Folder.GetNativePath() / "board.pcb";
    fs::permissions(design, fs::perms(0440));

    EXPECT_TRUE(Make());
    EXPECT_TRUE(Make()) << "a copy of a read-only design is replaced like any other";

    const fs::path copy = m_Folder.GetNativePath() / "Backup Copy of board.pcb";
    EXPECT_EQ(fs::status(copy).permissions(), fs::perms(0640));
}

TEST_F(BackupCopyTest, WhatCannotBeCopiedLeavesTheOlderCopiesAlone)
{
    struct CCase
    {
        const char* m_What;
        std::function<void()> m_Prepare;
        UINT m_Error;
    };
    namespace fs = std::filesystem;
    const fs::path folder = m_Folder.GetNativePath();
    MakeCopy(u"Backup Copy of board.pcb", 1);
    for (const CCase& test :
         {
             CCase{"no design", [&] { fs::rename(folder / "board.pcb", folder / "x"); },
                   ERROR_FILE_NOT_FOUND},
             CCase{"no design and no place",
                   []
                   {
                       CBackupFiles::SetBackupKeepWhere(EFolderType::BelowDesign);
                       CBackupFiles::SetBackupDir(u"none");
                   },
                   ERROR_FILE_NOT_FOUND},
             CCase{"a read-only copy",
                   [&]
                   {
                       CBackupFiles::SetBackupKeepWhere(EFolderType::Design);
                       fs::rename(folder / "x", folder / "board.pcb");
                       fs::permissions(folder / "Backup Copy of board.pcb", fs::perms(0444));
                   },
                   IDS_FILE_READ_ONLY},
             CCase{"a name that is the design's",
                   [] { CBackupFiles::SetBackupFilenameTemplate(u"$(DesignName)"); },
                   IDS_CANNOT_OVERWRITE},
             CCase{"no place",
                   []
                   {
                       CBackupFiles::SetBackupKeepWhere(EFolderType::Named);
                       CBackupFiles::SetBackupDir(u"\\proc\\none");
                   },
                   IDS_CREATE_DIRECTORY_FAILED},
             CCase{"a file for a place", [&] { CBackupFiles::SetBackupDir(m_Design); },
                   IDS_CREATE_DIRECTORY_FAILED},
         })
    {
        SCOPED_TRACE(test.m_What);
        test.m_Prepare();
        const std::vector<std::string> before = m_Folder.List();

        EXPECT_FALSE(Make());

        EXPECT_EQ(GetLastError(), test.m_Error);
        EXPECT_EQ(m_Folder.List(), before);
        EXPECT_EQ(m_Folder.Read(u"Backup Copy of board.pcb"), "Backup Copy of board.pcb");
    }
}

TEST_F(BackupCopyTest, ADesignThatSomebodyWritesAndAPlaceInUseAreRefused)
{
    {
        const CFile writer(m_Design, CFile::modeReadWrite | CFile::shareDenyNone);
        EXPECT_FALSE(Make());
        EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    }
    const CString staged = m_Folder.MakeFile(u"board.pcb.backup~1.whole", "other");
    {
        const CFile holder(staged, CFile::modeReadWrite | CFile::shareExclusive);
        EXPECT_FALSE(Make());
        EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
        EXPECT_FALSE(m_Folder.Exists(u"Backup Copy of board.pcb"));
    }
    EXPECT_TRUE(Make()) << "and the next one finishes all";
    EXPECT_EQ(m_Folder.List(), (std::vector<std::string>{"Backup Copy of board.pcb", "board.pcb"}));
}

TEST_F(BackupCopyTest, ACopyThatCannotMakeRoomIsNotReplaced)
{
    CBackupFiles::SetBackupCopyCount(2);
    MakeCopy(u"Backup Copy of board1.pcb", 2);
    MakeCopy(u"Backup Copy of board2.pcb", 1);
    m_Folder.MakeFolder(u"Backup Copy of board1"); // a stranger, not in the way
    std::filesystem::permissions(m_Folder.GetNativePath() / "Backup Copy of board1.pcb",
                                 std::filesystem::perms(0444));

    EXPECT_FALSE(Make());

    EXPECT_EQ(CAppError::GetLastError(), IDS_CANNOT_OVERWRITE);
    EXPECT_EQ(m_Folder.Read(u"Backup Copy of board2.pcb"), "Backup Copy of board2.pcb");
    EXPECT_TRUE(CFilePath::DoesFileExist(m_Made)) << "the copy that waits for its name";
}

TEST_F(BackupCopyTest, LeftCopiesGetTheirNamesInTheirOrderWithTheirLabels)
{
    CBackupFiles::SetBackupFilenameTemplate(u"b$(Infinite)");
    CBackupFiles::SetBackupCopyCount(3);
    m_Folder.MakeFile(u"board.pcb.backup~10.whole", "second");
    m_Folder.MakeFile(u"board.pcb.backup~9.whole", "first");
    m_Folder.MakeFile(u"board.pcb.backup.part", "broken off");
    m_Folder.MakeFile(u"board.pcb.restore-point~1.a.b.whole", "labelled");

    EXPECT_TRUE(Make());
    EXPECT_TRUE(Make(EBackupKind::RestorePoint, u"c"));

    EXPECT_EQ(m_Folder.List(),
              (std::vector<std::string>{"Restore Point for board (a.b).pcb",
                                        "Restore Point for board (c).pcb", "b1.pcb", "b2.pcb",
                                        "b3.pcb", "board.pcb"}));
    EXPECT_EQ(m_Folder.Read(u"b1.pcb") + m_Folder.Read(u"b2.pcb"), "firstsecond");
    EXPECT_EQ(m_Folder.Read(u"Restore Point for board (a.b).pcb"), "labelled");
}

TEST_F(BackupCopyTest, AWildcardInADesignsNameTakesUpNoOtherDesignsCopy)
{
    m_Design = m_Folder.MakeFile(u"b*.pcb", DESIGN_BYTES);
    m_Folder.MakeFile(u"board.pcb.backup~1.whole", "other");

    EXPECT_TRUE(Make());

    EXPECT_EQ(m_Folder.List(), (std::vector<std::string>{"Backup Copy of b*.pcb", "b*.pcb",
                                                         "board.pcb", "board.pcb.backup~1.whole"}));
}

TEST_F(BackupCopyTest, RestoringOneCopyKeepsWhatItReplaces)
{
    const CString copy = MakeCopy(u"Backup Copy of board.pcb", 1);
    CBackupFiles::SetDoBackup(false); // what is replaced is kept all the same
    CString kept;

    EXPECT_TRUE(CBackupCopy::Restore(copy, m_Design, kept));

    EXPECT_EQ(m_Folder.List(), (std::vector<std::string>{"Backup Copy of board.pcb", "board.pcb"}));
    EXPECT_EQ(m_Folder.Read(u"board.pcb"), "Backup Copy of board.pcb");
    EXPECT_EQ(m_Folder.Read(u"Backup Copy of board.pcb"), DESIGN_BYTES);
    EXPECT_EQ(kept, copy);
}

TEST_F(BackupCopyTest, RestoringFailsWithTheDesignAsItWas)
{
    const CString copy = MakeCopy(u"Backup Copy of board.pcb", 1);
    CString kept = u"preset";
    EXPECT_FALSE(CBackupCopy::Restore(m_Folder.PathOf(u"absent"), m_Design, kept));
    EXPECT_FALSE(CBackupCopy::Restore(m_Design, m_Design, kept));
    std::filesystem::permissions(m_Folder.GetNativePath() / "board.pcb",
                                 std::filesystem::perms(0444));
    EXPECT_FALSE(CBackupCopy::Restore(copy, m_Design, kept));
    EXPECT_EQ(CAppError::GetLastError(), IDS_FILE_READ_ONLY);

    EXPECT_EQ(kept, u"preset");
    EXPECT_EQ(m_Folder.Read(u"board.pcb"), DESIGN_BYTES);
    EXPECT_EQ(m_Folder.List().size(), 2U);

    std::filesystem::remove(m_Folder.GetNativePath() / "board.pcb");
    EXPECT_TRUE(CBackupCopy::Restore(copy, m_Design, kept)) << "a lost design comes back";
    EXPECT_EQ(kept, u"");
    EXPECT_EQ(m_Folder.Read(u"board.pcb"), "Backup Copy of board.pcb");
}

/// In a child, whose mounts nobody else sees: puts a small disk over a folder.
bool MountDisk(const std::filesystem::path& folder)
{
    return (unshare(CLONE_NEWNS) == 0 || unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) &&
           mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("none", folder.c_str(), "tmpfs", 0, "size=100k") == 0;
}

TEST_F(BackupCopyTest, AFullDiskAndAReadOnlyPlaceRotateNothingAndSaySo)
{
    enum EResult
    {
        REFUSED = 10,
        MADE,
        WRONG_REASON,
        CHANGED,
        NO_DISK
    };
    for (const bool isFull : {true, false})
    {
        SCOPED_TRACE(isFull ? "full" : "read-only");
        m_Folder.MakeFolder(u"place");
        CBackupFiles::SetBackupKeepWhere(EFolderType::BelowDesign);
        CBackupFiles::SetBackupDir(u"place");
        CBackupFiles::SetBackupCopyCount(2);
        m_Folder.MakeFile(u"board.pcb", std::string(200'000, 'd'));
        const auto work = [&]() -> int
        {
            const std::filesystem::path place = m_Folder.GetNativePath() / "place";
            if (!MountDisk(place))
                return NO_DISK;
            MakeCopy(u"place\\Backup Copy of board1.pcb", 2);
            MakeCopy(u"place\\Backup Copy of board2.pcb", 1);
            const std::vector<std::string> before = m_Folder.List();
            if (!isFull && mount(nullptr, place.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr))
                return NO_DISK;
            if (Make() || !m_Made.IsEmpty())
                return MADE;
            if (GetLastError() != (isFull ? ERROR_DISK_FULL : ERROR_WRITE_PROTECT))
                return WRONG_REASON;
            return m_Folder.List() == before ? REFUSED : CHANGED;
        };

        const int result = CChildProcess(work).Wait();

        if (result == NO_DISK)
            GTEST_SKIP() << "this system lets nobody mount a disk";
        EXPECT_EQ(result, REFUSED);
    }
}

/// While it lives, temporary folders are made in memory, so that thousands of synced files cost no
/// time. What a disk has at a given call is the same.
class CFoldersInMemory
{
private:
    CEnvironmentVariable m_Place{"TMPDIR", "/dev/shm"};
};

/// Runs that end or fail at a given call; the fixture's folder is made after the first base.
class BackupFaultTest : CFoldersInMemory, public BackupCopyTest
{
protected:
    struct CRotation
    {
        const char* m_What;
        const char16_t* m_Template;
        int m_Count;
        std::vector<const char16_t*> m_Names; // by age, the oldest first
    };

    /// What a killed or failed run may leave; made anew for each.
    void Prepare(const CRotation& rotation)
    {
        for (const auto& entry : std::filesystem::directory_iterator(m_Folder.GetNativePath()))
            std::filesystem::remove(entry);
        m_Folder.MakeFile(u"board.pcb", DESIGN_BYTES);
        CBackupFiles::SetBackupFilenameTemplate(rotation.m_Template);
        CBackupFiles::SetBackupCopyCount(rotation.m_Count);
        m_Old.clear();
        for (std::size_t i = 0; i < rotation.m_Names.size(); ++i)
        {
            m_Old.push_back("copy " + std::to_string(i + 1) + " of old");
            m_Folder.MakeFile(rotation.m_Names[i], m_Old.back());
            SetAge(rotation.m_Names[i], 90 - static_cast<int>(i));
        }
    }

    /// The contents of all copies, sorted, also of those that wait for their names.
    std::vector<std::string> Contents() const
    {
        std::vector<std::string> contents;
        for (const std::string& name : m_Folder.List())
        {
            const CString file(name.c_str());
            if (name != "board.pcb" &&
                (CBackupFiles::IsBackupName(file) || name.ends_with(".whole")))
                contents.push_back(m_Folder.Read(file));
        }
        std::ranges::sort(contents);
        return contents;
    }

    /// The youngest copies that the count lets stay are there, and the oldest or the new one.
    void ExpectNothingIsLost(const CRotation& rotation) const
    {
        const std::vector<std::string> contents = Contents();
        const auto isThere = [&](const std::string& content)
        {
            return std::ranges::count(contents, content) == 1;
        };
        EXPECT_EQ(m_Folder.Read(u"board.pcb"), DESIGN_BYTES);
        const std::size_t staying = static_cast<std::size_t>(rotation.m_Count) - 1;
        for (std::size_t i = m_Old.size() - staying; i < m_Old.size(); ++i)
            EXPECT_TRUE(isThere(m_Old[i])) << m_Old[i];
        EXPECT_TRUE(isThere(m_Old[m_Old.size() - staying - 1]) || isThere(DESIGN_BYTES));
        EXPECT_LE(contents.size(), m_Old.size() + 1);
    }

    /// Tries a fault at each call of a run; after it the next run goes on.
    int CountPointsTried(const CRotation& rotation, ESystemCallFault fault)
    {
        for (int call = 1;; ++call)
        {
            SCOPED_TRACE(testing::Message()
                         << rotation.m_What << ", call " << call
                         << (fault == ESystemCallFault::Kills ? " kills" : " fails"));
            Prepare(rotation);

            const CFaultedRun run = RunWithFault(call, fault, [this] { return Make() ? 0 : 1; });

            ExpectNothingIsLost(rotation);
            EXPECT_TRUE(run.WasMet || run.Result == 0);
            if (!run.WasMet || HasFailure())
                return call - 1;
            EXPECT_TRUE(Make()) << "the next run goes on";
            EXPECT_EQ(Contents().size(), static_cast<std::size_t>(rotation.m_Count));
            EXPECT_EQ(m_Folder.Read(m_Made.Mid(m_Folder.GetPath().GetLength() + 1)), DESIGN_BYTES);
            for (const std::string& name : m_Folder.List())
                EXPECT_TRUE(name.ends_with(".pcb")) << name << " is left";
        }
    }

    std::vector<std::string> m_Old;
};

TEST_F(BackupFaultTest, AnEndOrAFailureAtAnyCallLosesNothing)
{
    CBackupFiles::GetBackupDir(); // stored by the first reading, which is none of this road
    std::vector<CRotation> rotations{
        {"one name", u"b of $(DesignName)", 1, {u"b of board.pcb"}},
        {"increment", u"b$(Increment)", 3, {u"b1.pcb", u"b2.pcb", u"b3.pcb"}},
    };
    std::vector<ESystemCallFault> faults{ESystemCallFault::Kills};
    if (std::getenv("UTILITY_NIGHTLY"))
    {
        rotations.insert(
            rotations.end(),
            {{"decrement", u"b$(Decrement)", 3, {u"b3.pcb", u"b2.pcb", u"b1.pcb"}},
             {"infinite", u"b$(Infinite)", 2, {u"b8.pcb", u"b9.pcb"}},
             {"a ring", u"b$(Increment)", 4, {u"b3.pcb", u"b1.pcb", u"b2.pcb", u"b4.pcb"}}});
        faults.push_back(ESystemCallFault::Fails);
    }
    int points = 0;
    for (const CRotation& rotation : rotations)
    {
        for (const ESystemCallFault fault : faults)
            points += CountPointsTried(rotation, fault);
    }
    std::cout << "            " << points << " points were tried\n";
    EXPECT_GT(points, 200) << "the road has more calls than these";
}

TEST_F(BackupFaultTest, AnEndWhileAnEarlierEndIsMadeGoodLosesNothing)
{
    CBackupFiles::GetBackupDir();
    const CRotation rotation{"increment", u"b$(Increment)", 3, {u"b1.pcb", u"b2.pcb", u"b3.pcb"}};
    const auto make = [this]
    {
        return Make() ? 0 : 1;
    };
    const int step = std::getenv("UTILITY_NIGHTLY") ? 1 : 3;
    int points = 0;
    for (int call = 1;; call += step, ++points)
    {
        SCOPED_TRACE(testing::Message() << "call " << call);
        Prepare(rotation);
        m_Folder.MakeFile(u"board.pcb.backup~1.whole", "left by an earlier end");

        const CFaultedRun run = RunWithFault(call, ESystemCallFault::Kills, make);

        // One more copy is on its way, so one more of the old ones may go.
        const std::vector<std::string> contents = Contents();
        for (const std::string& content : {m_Old[2], std::string("left by an earlier end")})
            EXPECT_EQ(std::ranges::count(contents, content), 1) << content;
        const bool isNewThere = std::ranges::count(contents, DESIGN_BYTES) == 1;
        EXPECT_TRUE(isNewThere || std::ranges::count(contents, m_Old[1]) == 1);
        if (!run.WasMet || HasFailure())
            break;
        EXPECT_TRUE(Make());
        EXPECT_EQ(Contents().size(), 3U);
    }
    std::cout << "            " << points << " points were tried\n";
    EXPECT_GT(points, 80);
}

TEST_F(BackupFaultTest, AnEndAtAnyCallOfARestoreLeavesBothDesigns)
{
    CBackupFiles::GetBackupDir();
    const CRotation rotation{"increment", u"b$(Increment)", 2, {u"b1.pcb", u"b2.pcb"}};
    int points = 0;
    for (int call = 1;; ++call, ++points)
    {
        SCOPED_TRACE(testing::Message() << "call " << call);
        Prepare(rotation);

        const CFaultedRun run =
            RunWithFault(call, ESystemCallFault::Kills,
                         [this]
                         {
                             CString kept;
                             const CString copy = m_Folder.PathOf(u"b1.pcb");
                             return CBackupCopy::Restore(copy, m_Design, kept) ? 0 : 1;
                         });

        const std::string design = m_Folder.Read(u"board.pcb");
        std::vector<std::string> all = Contents();
        all.push_back(design);
        EXPECT_TRUE(design == DESIGN_BYTES || design == m_Old[0]);
        for (const std::string& content : {std::string(DESIGN_BYTES), m_Old[0], m_Old[1]})
            EXPECT_GE(std::ranges::count(all, content), 1) << content;
        if (!run.WasMet || HasFailure())
            break;
    }
    std::cout << "            " << points << " points were tried\n";
    EXPECT_GT(points, 100);
}

} // namespace
