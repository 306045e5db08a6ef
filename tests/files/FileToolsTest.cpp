#include "files/FileTools.h"

#include "files/DataFolder.h"
#include "files/DeleteFolder.h"
#include "files/FilePath.h"
#include "files/FileSize.h"
#include "files/TempFiles.h"
#include "frame/AppError.h"
#include "frame/ProgramPath.h"
#include "platform/system/KnownFolders.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "resources/StringIds.h"

#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>

using namespace utility;

namespace
{

void MakeReadOnly(const CTemporaryFolder& folder, const char* name)
{
    std::filesystem::permissions(folder.GetNativePath() / name, std::filesystem::perms::owner_read);
}

TEST(FileToolsTest, WriteableReadOnlyAndUnknownAreToldApart)
{
    const CTemporaryFolder folder;
    const CString readOnly = folder.MakeFile(u"readonly");
    MakeReadOnly(folder, "readonly");

    EXPECT_TRUE(IsFileWriteable(folder.MakeFile(u"plain")));
    EXPECT_TRUE(IsFileWriteable(folder.PathOf(u"absent")));
    EXPECT_FALSE(IsFileWriteable(readOnly));
    EXPECT_EQ(CAppError::GetLastError(), IDS_FILE_READ_ONLY);
    EXPECT_EQ(CAppError::GetLastErrorString(),
              u"File \"" + NativePath(readOnly) + u"\" is read-only and cannot be written.");
    EXPECT_FALSE(IsFileWriteable(folder.PathOf(u"no\\such")));
    EXPECT_EQ(CAppError::GetLastError(), IDS_CANNOT_TELL_READ_ONLY);
}

TEST(FileToolsTest, WithoutAYesTheReadOnlyMarkStays)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a");
    MakeReadOnly(folder, "a");

    EXPECT_FALSE(MakeFileWriteable(path));

    EXPECT_EQ(CAppError::GetLastError(), IDS_FILE_READ_ONLY);
    EXPECT_FALSE(IsFileWriteable(path));
}

TEST(FileToolsTest, AYesTakesTheReadOnlyMarkAway)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a");
    MakeReadOnly(folder, "a");
    CScriptedUser user;
    user.WillAnswer(IDYES);

    EXPECT_TRUE(MakeFileWriteable(path));

    EXPECT_TRUE(IsFileWriteable(path));
    EXPECT_TRUE(MakeFileWriteable(path)); // asks nothing more
    EXPECT_EQ(user.GetOnlyText(), u"The file \"" + NativePath(path) +
                                      u"\" is currently read-only.\n"
                                      u"Do you want to overwrite this file anyway?");
}

TEST(FileToolsTest, ReadOnlyComesAndGoesAndNothingElse)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a");

    EXPECT_TRUE(SetFileReadOnly(path, true));
    EXPECT_FALSE(IsFileWriteable(path));
    EXPECT_TRUE(SetFileReadOnly(path, false));
    EXPECT_TRUE(IsFileWriteable(path));
    EXPECT_FALSE(SetFileAttrib(path, 2, true));
    EXPECT_EQ(CAppError::GetLastError(), IDS_CANNOT_CHANGE_PROPERTIES);
    EXPECT_FALSE(SetFileReadOnly(folder.PathOf(u"absent"), true));
}

TEST(FileToolsTest, ForceDeletesReadOnlyFiles)
{
    const CTemporaryFolder folder;
    const CString path = folder.MakeFile(u"a");
    MakeReadOnly(folder, "a");

    EXPECT_TRUE(ForceDeleteFile(path));
    EXPECT_FALSE(ForceDeleteFile(path));

    EXPECT_TRUE(folder.List().empty());
}

TEST(FileSizeTest, SizesForPeople)
{
    const std::pair<std::int64_t, const char16_t*> cases[] = {
        {0, u"0"},
        {512, u"512.00  B"},
        {1023, u"1023.00  B"},
        {1024, u"1.00 KB"},
        {1536, u"1.50 KB"},
        {1048576, u"1.00 MB"},
        {std::int64_t(1) << 50U, u"1.00 PB"},
    };
    for (const auto& [size, text] : cases)
    {
        SCOPED_TRACE(size);
        EXPECT_EQ(ReadableFileSize(size), text);
    }
    const CTemporaryFolder folder;
    EXPECT_EQ(ReadableFileSize(folder.PathOf(u"absent")), u"");
    EXPECT_EQ(GetFileSize(folder.PathOf(u"absent")), 0);
    EXPECT_EQ(GetFileSize(folder.MakeFile(u"a", "12345")), 5);
}

TEST(DeleteFolderTest, DeletesAllButWhatLinksLeadTo)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"outside\\keep");
    folder.MakeFile(u"all\\sub\\.hidden");
    folder.MakeFile(u"all\\file");
    std::filesystem::create_directory_symlink("../outside", folder.GetNativePath() / "all/link");

    EXPECT_EQ(DeleteFolder(folder.PathOf(u"all"), false), 0);

    EXPECT_EQ(folder.List(), (std::vector<std::string>{"outside/", "outside/keep"}));
}

TEST(DeleteFolderTest, ReadOnlyFilesStayUnlessForced)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"all\\sub\\stays");
    folder.MakeFile(u"all\\goes");
    MakeReadOnly(folder, "all/sub/stays");

    EXPECT_EQ(DeleteFolder(folder.PathOf(u"all"), false), 1);
    EXPECT_EQ(folder.List(), (std::vector<std::string>{"all/", "all/sub/", "all/sub/stays"}));
    EXPECT_EQ(DeleteFolder(folder.PathOf(u"all"), true), 0);
    EXPECT_TRUE(folder.List().empty());
}

TEST(DeleteFolderTest, WhatIsNoFolderGivesTwo)
{
    const CTemporaryFolder folder;

    EXPECT_EQ(DeleteFolder(u"", true), 2);
    EXPECT_EQ(DeleteFolder(folder.PathOf(u"absent"), true), 2);
    EXPECT_EQ(DeleteFolder(folder.MakeFile(u"file"), true), 2);
    EXPECT_TRUE(folder.Exists(u"file"));
}

TEST(DataFolderTest, FoldersGoByNumberAndElseToTheProgram)
{
    CString program = GetProgramPath();
    CFilePath::RemoveDirectorySeparator(program);
    const CString home = ClassicPath(std::getenv("HOME"));

    EXPECT_EQ(GetDataFolderName(CSIDL_PROFILE), home);
    EXPECT_EQ(GetDataFolder(CSIDL_PROFILE, u"Parts"), home + u"\\Parts\\");
    EXPECT_EQ(GetDataFolderName(9999), program);
}

TEST(TempFilesTest, NobodyElseMayEnterTheTemporaryFolder)
{
    const CString first = GetTempFile();
    const CString second = GetTempFile();
    struct stat status = {};

    EXPECT_NE(first, second);
    EXPECT_TRUE(CFilePath::DoesFileExist(first));
    ASSERT_EQ(stat(DiskPathBytes(GetTempFolder()).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);

    EXPECT_TRUE(ForceDeleteFile(first));
    EXPECT_TRUE(ForceDeleteFile(second));
}

} // namespace
