#include "files/SafeFile.h"

#include "frame/AppError.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/File.h"
#include "resources/StringIds.h"

#include "support/ChildProcess.h"
#include "support/SystemCallFault.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

using namespace utility;

namespace
{

const std::string OLD(5000, 'o');
const std::string NEW(70000, 'n');

mode_t ModeOf(const CTemporaryFolder& folder, const char* name)
{
    struct stat status = {};
    return stat((folder.GetNativePath() / name).c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
}

TEST(SafeFileTest, ReplacesAndMakesFilesWhole)
{
    const CTemporaryFolder folder;

    EXPECT_TRUE(CSafeFile::Write(folder.MakeFile(u"old", OLD), NEW));
    EXPECT_TRUE(CSafeFile::Write(folder.PathOf(u"new"), NEW));

    EXPECT_EQ(folder.List(), (std::vector<std::string>{"new", "old"}));
    EXPECT_EQ(folder.Read(u"old"), NEW);
    EXPECT_EQ(folder.Read(u"new"), NEW);
}

TEST(SafeFileTest, KeepsModeAndSymbolicLink)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"deep\\target", OLD);
    std::filesystem::permissions(folder.GetNativePath() / "deep/target",
                                 std::filesystem::perms(0640));
    std::filesystem::create_symlink("deep/target", folder.GetNativePath() / "link");

    EXPECT_TRUE(CSafeFile::Write(folder.PathOf(u"link"), NEW));

    EXPECT_EQ(folder.List(), (std::vector<std::string>{"deep/", "deep/target", "link"}));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.GetNativePath() / "link"));
    EXPECT_EQ(folder.Read(u"deep\\target"), NEW);
    EXPECT_EQ(ModeOf(folder, "deep/target"), mode_t(0640));
}

TEST(SafeFileTest, AReadOnlyTargetIsRefusedFirst)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a", OLD);
    std::filesystem::permissions(folder.GetNativePath() / "a", std::filesystem::perms(0444));

    CSafeFile file;
    EXPECT_FALSE(file.Begin(path));

    EXPECT_EQ(CAppError::GetLastError(), IDS_FILE_READ_ONLY);
    EXPECT_EQ(folder.List(), std::vector<std::string>{"a"});
}

TEST(SafeFileTest, GivenUpLeavesTheOldFileAlone)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a", OLD);
    {
        CSafeFile file;
        ASSERT_TRUE(file.Begin(path));
        EXPECT_EQ(folder.List().size(), 2U);
    }

    EXPECT_EQ(folder.List(), std::vector<std::string>{"a"});
    EXPECT_EQ(folder.Read(u"a"), OLD);
}

TEST(SafeFileTest, AFileThatSomebodyWritesIsNotReplaced)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a", OLD);
    const CFile writer(path, CFile::modeReadWrite | CFile::shareDenyNone);

    EXPECT_FALSE(CSafeFile::Write(path, NEW));

    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(folder.List(), std::vector<std::string>{"a"});
    EXPECT_EQ(folder.Read(u"a"), OLD);
}

/// In a child, whose mounts nobody else sees: puts a disk of 100 kB over the folder; false where
/// that is not allowed.
bool MountSmallDisk(const std::filesystem::path& folder)
{
    return (unshare(CLONE_NEWNS) == 0 || unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) &&
           mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("none", folder.c_str(), "tmpfs", 0, "size=100k") == 0;
}

TEST(SafeFileTest, AFullDiskLeavesTheOldFileWhole)
{
    enum EResult
    {
        KEPT = 10,
        WRITTEN,
        WRONG_REASON,
        CHANGED,
        NO_DISK
    };
    const CTemporaryFolder folder;
    const auto work = [&folder]() -> int
    {
        if (!MountSmallDisk(folder.GetNativePath()))
            return NO_DISK;
        const CString path = folder.MakeFile(u"a", OLD);
        if (CSafeFile::Write(path, NEW + NEW))
            return WRITTEN;
        if (GetLastError() != ERROR_DISK_FULL)
            return WRONG_REASON;
        const bool isKept =
            folder.Read(u"a") == OLD && folder.List() == std::vector<std::string>{"a"};
        return isKept ? KEPT : CHANGED;
    };

    const int result = CChildProcess(work).Wait();

    if (result == NO_DISK)
        GTEST_SKIP() << "this system lets nobody mount a disk";
    EXPECT_EQ(result, KEPT);
}

TEST(SafeFileTest, EachFailingCallLeavesTheOldOrTheNewFileWhole)
{
    int call = 1;
    for (;; ++call)
    {
        SCOPED_TRACE(testing::Message() << "file call " << call);
        const CTemporaryFolder folder;
        const CString path = folder.MakeFile(u"a", OLD);

        const CFaultedRun run = RunWithFault(call, ESystemCallFault::Fails,
                                             [&] { return CSafeFile::Write(path, NEW) ? 0 : 1; });

        EXPECT_GE(run.Result, 0) << "the program goes on";
        EXPECT_TRUE(folder.Read(u"a") == (run.Result == 0 ? NEW : OLD));
        EXPECT_EQ(folder.List(), std::vector<std::string>{"a"});
        if (!run.WasMet)
            break;
    }
    EXPECT_GT(call, 15) << "the road has more calls than these";
}

TEST(SafeFileTest, AnEndAtAnyCallLeavesTheOldOrTheNewFileWhole)
{
    int call = 1;
    for (;; ++call)
    {
        SCOPED_TRACE(testing::Message() << "file call " << call);
        const CTemporaryFolder folder;
        const CString path = folder.MakeFile(u"a", OLD);

        const CFaultedRun run = RunWithFault(call, ESystemCallFault::Kills,
                                             [&] { return CSafeFile::Write(path, NEW) ? 0 : 1; });

        const std::string content = folder.Read(u"a");
        EXPECT_TRUE(content == OLD || content == NEW);
        if (!run.WasMet)
            break;
    }
    EXPECT_GT(call, 15);
}

} // namespace
