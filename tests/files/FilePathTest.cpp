#include "files/FilePath.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/Wnd.h"

#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

constexpr char16_t QUESTION[] = u"Directory '%s' does not exist\nDo you want to create it?";
constexpr char16_t FAILURE[] = u"Failed to create directory '%s'";

std::string Show(const CString& text)
{
    return testing::PrintToString(std::u16string(text));
}

CString Squeezed(const CString& path, int maxLength)
{
    CString text = path;
    CFilePath::Squeeze(text, maxLength, nullptr);
    return text;
}

TEST(FilePathTest, PartsAreSetAndJoinedAnew)
{
    struct CCase
    {
        const char* Name;
        void (*Change)(CFilePath& path);
        const char16_t* Result;
    };
    const CCase cases[] = {
        {"drive", [](CFilePath& p) { p.SetDrive(u"D"); }, u"D:\\dir\\name.ext"},
        {"directory", [](CFilePath& p) { p.SetDirectory(u"\\a/b"); }, u"C:\\a/b\\name.ext"},
        {"file name with a dot", [](CFilePath& p) { p.SetFileName(u"x.y"); }, u"C:\\dir\\x.y.ext"},
        {"extension without its dot", [](CFilePath& p) { p.SetExtension(u"pcb"); },
         u"C:\\dir\\name.pcb"},
        {"no extension", [](CFilePath& p) { p.SetExtension(u""); }, u"C:\\dir\\name"},
        {"drive and directory", [](CFilePath& p) { p.SetDriveAndDirectory(u"D:\\x"); },
         u"D:\\x\\name.ext"},
        {"empty drive and directory", [](CFilePath& p) { p.SetDriveAndDirectory(u""); },
         u"name.ext"},
        {"folder below", [](CFilePath& p) { p.AddSubDirectory(u"Backups"); },
         u"C:\\dir\\Backups\\name.ext"},
        {"untitled", [](CFilePath& p) { p.SetUntitled(); }, u"C:\\dir\\Untitled.ext"},
        {"suffix", [](CFilePath& p) { p.AddFileNameSuffix(10621); }, u"C:\\dir\\name *.ext"},
        {"unknown suffix", [](CFilePath& p) { p.AddFileNameSuffix(9); }, u"C:\\dir\\name.ext"},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(test.Name);
        CFilePath path(u"C:\\dir\\name.ext");
        test.Change(path);
        EXPECT_EQ(path.GetPath(), test.Result);
        EXPECT_EQ(CFilePath(path.GetPath()).GetDirectory(), path.GetDirectory());
        EXPECT_FALSE(path.WasCut());
    }
}

TEST(FilePathTest, FoldersBelowKeepTheirSeparators)
{
    CFilePath path;
    path.SetDriveAndDirectory(u"C:\\Work");
    path.AddSubDirectory(u"Backups");
    EXPECT_EQ(path.GetDirectory(), u"\\Work\\Backups\\");
    EXPECT_EQ(path.GetDriveAndDirectory(), u"C:\\Work\\Backups");

    CFilePath root(u"\\");
    root.AddSubDirectory(u"x");
    EXPECT_EQ(root.GetPath(), u"\\x\\");
}

TEST(FilePathTest, ComparisonsTakeNoRegardOfCaseAndSeparator)
{
    const CFilePath path(u"C:\\dir\\name.ext");

    EXPECT_TRUE(path == CString(u"c:/DIR/Name.EXT"));
    EXPECT_TRUE(path == CFilePath(u"C:\\DIR\\NAME.ext"));
    EXPECT_FALSE(path == CString(u"C:\\dir\\name.ex"));
    EXPECT_TRUE(path.EqualDirectory(u"/Dir/"));
    EXPECT_TRUE(path.EqualExtension(u"EXT"));
    EXPECT_TRUE(path.EqualExtension(u".ext"));
    EXPECT_FALSE(path.EqualExtension(u""));
    EXPECT_TRUE(CFilePath(u"name").EqualExtension(u""));
}

TEST(FilePathTest, LongTextsAreCutAndTell)
{
    const CString name(u'n', 300);
    CFilePath path(u"C:\\" + name + u".ext");
    EXPECT_EQ(path.GetFileName().GetLength(), 255);
    EXPECT_TRUE(path.WasCut());

    CFilePath part(u"a");
    part.SetFileName(name);
    EXPECT_TRUE(part.WasCut());

    CFilePath joined(u"\\" + CString(u'd', 200) + u"\\" + CString(u'n', 200));
    EXPECT_EQ(joined.GetFileName().GetLength(), 200) << "pieces may hold what the joined path cuts";
    EXPECT_EQ(joined.GetPath().GetLength(), 259);
    EXPECT_TRUE(joined.WasCut());
}

TEST(FilePathTest, UntitledNames)
{
    EXPECT_TRUE(CFilePath().IsUntitled());
    EXPECT_TRUE(CFilePath(u"x\\untitled.pcb").IsUntitled());
    EXPECT_TRUE(CFilePath(u".config").IsUntitled());
    EXPECT_FALSE(CFilePath(u"untitled1.pcb").IsUntitled());
}

TEST(FilePathTest, SeparatorsAtTheEnd)
{
    struct CCase
    {
        const char16_t* Path;
        const char16_t* Added;
        const char16_t* Removed;
    };
    const CCase cases[] = {
        {u"", u"\\", u""}, {u"a", u"a\\", u"a"}, {u"a\\", u"a\\", u"a"}, {u"a/", u"a/", u"a/"}};
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(Show(test.Path));
        CString added = test.Path;
        CString removed = test.Path;
        CFilePath::AddDirectorySeparator(added);
        CFilePath::RemoveDirectorySeparator(removed);
        EXPECT_EQ(added, test.Added);
        EXPECT_EQ(removed, test.Removed);
    }
}

TEST(FilePathTest, RelativePathsAndTheirFirstFolder)
{
    struct CCase
    {
        const char16_t* Path;
        bool IsRelative;
        const char16_t* First; // null: none
        const char16_t* Applied;
    };
    const CCase cases[] = {
        {u"sub", true, nullptr, u"\\cur\\sub"},      {u"sub\\x", true, u"sub", u"\\cur\\sub\\x"},
        {u"a\\b\\c", true, u"a", u"\\cur\\a\\b\\c"}, {u"\\sub", false, nullptr, u"\\sub"},
        {u"\\sub\\x", false, u"sub", u"\\sub\\x"},   {u"C:\\sub\\x", false, u"sub", u"C:\\sub\\x"},
        {u"C:sub", false, nullptr, u"C:sub"},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(Show(test.Path));
        CString first = u"preset";
        CString applied = test.Path;
        CFilePath::ApplyCurrentDir(applied, u"\\cur");
        EXPECT_EQ(CFilePath::IsRelativeDirectoryPath(test.Path), test.IsRelative);
        EXPECT_EQ(CFilePath::FirstDirectory(test.Path, first), test.First != nullptr);
        EXPECT_EQ(first, test.First != nullptr ? test.First : u"preset");
        EXPECT_EQ(applied, test.Applied);
    }
}

TEST(FilePathTest, NamesAreCleaned)
{
    CString cleaned = u"a:b*c";
    CString replaced = u"a:b*c";
    CString refused = u"a:b*c";
    CString legal = u"a:b<c|d?";
    CFilePath::Clean(cleaned);
    CFilePath::CleanWith(replaced, u"_");
    CFilePath::CleanWith(refused, u"*");

    EXPECT_EQ(cleaned, u"abc");
    EXPECT_EQ(replaced, u"a_b_c");
    EXPECT_EQ(refused, u"a:b*c");
    EXPECT_TRUE(CFilePath::MakeFileNameLegal(legal));
    EXPECT_EQ(legal, u"a_b<c|d_");
    EXPECT_FALSE(CFilePath::MakeFileNameLegal(legal));
}

TEST(FilePathTest, ExtensionsOfPlainTexts)
{
    CString path = u"\\a.b\\name";
    CString empty;
    CFilePath::SetExtension(path, u"sch");
    CFilePath::SetExtension(empty, u"sch");

    EXPECT_EQ(path, u"\\a.b\\name.sch");
    EXPECT_EQ(empty, u"");
}

TEST(FilePathTest, SqueezedPathsShowTheNameFirst)
{
    struct CCase
    {
        const char16_t* Path;
        int Length;
        const char16_t* Result;
    };
    const CCase cases[] = {
        {u"C:\\lib\\board.pcb", 100, u"board.pcb   [in \"C:\\lib\"]"},
        {u"board.pcb", 100, u"board.pcb"},
        {u"\\board.pcb", 100, u"\\board.pcb"},
        {u"/srv/lib/board.pcb", 100, u"board.pcb   [in \"/srv/lib\"]"},
        {u"C:\\first\\second\\third\\board.pcb", 28, u"board.pcb   [in \"C:\\first\\...\\third\"]"},
        {u"C:\\first\\second\\third\\board.pcb", 24, u"board.pcb   [in \"C:\\fi...\\third\"]"},
        {u"C:\\first\\second\\third\\board.pcb", 10, u"board.pcb   [in \"...\"]"},
        {u"C:\\first\\board.pcb", 10, u"board.pcb   [in \"...\"]"},
        {u"averylongname.pcb", 5, u"averylongname.pcb   [in \"...\"]"},
    };
    for (const CCase& test : cases)
    {
        SCOPED_TRACE(Show(test.Path));
        EXPECT_EQ(Squeezed(test.Path, test.Length), test.Result);
    }
}

/// A user whose controls have room for so many units.
class CNarrowUser : public CScriptedUser
{
public:
    explicit CNarrowUser(int room) : m_Room(room) {}
    bool DoesTextFit(const CString& text, const CWnd&) override
    {
        return text.GetLength() <= m_Room;
    }

private:
    int m_Room;
};

TEST(FilePathTest, AControlDecidesWhatFitsAndNotTheLength)
{
    CNarrowUser user(24);
    CWnd control;
    CString narrow = u"C:\\first\\second\\third\\board.pcb";
    CString wide = u"C:\\lib\\board.pcb";

    CFilePath::Squeeze(narrow, 1000, &control);
    CFilePath::Squeeze(wide, 1, &control);

    EXPECT_EQ(narrow, u"board.pcb   [in \"C:\\fi...\\third\"]");
    EXPECT_EQ(wide, u"board.pcb   [in \"C:\\lib\"]");
}

TEST(FilePathTest, FilesAndFoldersAreToldApart)
{
    const CTemporaryFolder folder;
    const CString file = folder.MakeFile(u"sub\\file", "x");
    const CString sub = folder.PathOf(u"SUB");

    EXPECT_TRUE(CFilePath::DoesFileExist(file));
    EXPECT_FALSE(CFilePath::DoesFileExist(sub));
    EXPECT_FALSE(CFilePath::DoesFileExist(u""));
    EXPECT_TRUE(CFilePath::DoesFolderExist(sub));
    EXPECT_FALSE(CFilePath::DoesFolderExist(file));
    EXPECT_FALSE(CFilePath::DoesFolderExist(u""));
    EXPECT_TRUE(CFilePath::IsDirectory(sub + u"/"));
    EXPECT_FALSE(CFilePath::IsDirectory(file));
    EXPECT_FALSE(CFilePath::IsEmptyDirectory(sub));
    EXPECT_TRUE(CFilePath::IsEmptyDirectory(folder.MakeFolder(u"empty")));
    EXPECT_FALSE(CFilePath::IsEmptyDirectory(folder.PathOf(u"absent")));
}

TEST(FilePathTest, FoldersAreMadeWithThoseAbove)
{
    const CTemporaryFolder folder;
    folder.MakeFile(u"file");

    EXPECT_TRUE(CFilePath::CreateDirectoryW(folder.PathOf(u"a\\b.c\\.d")));
    EXPECT_TRUE(CFilePath::CreateDirectoryW(folder.PathOf(u"a\\e\\")));
    EXPECT_FALSE(CFilePath::CreateDirectoryW(folder.PathOf(u"file\\x")));
    EXPECT_FALSE(CFilePath::CreateDirectoryW(u"lone"));
    EXPECT_FALSE(CFilePath::CreateDirectoryW(folder.PathOf(CString(u'x', 300))));
    EXPECT_EQ(GetLastError(), ERROR_FILENAME_EXCED_RANGE);

    EXPECT_EQ(folder.List(),
              (std::vector<std::string>{"a/", "a/b.c/", "a/b.c/.d/", "a/e/", "file"}));
}

TEST(FilePathTest, AFolderIsMadeAfterAYesAlone)
{
    const struct
    {
        const char* Name;
        const char16_t* Path;
        int Answer;
        bool Result;
        const char16_t* Question;
        const char16_t* Report; // behind the question
    } cases[] = {
        {"it is there", u"there", 0, true, nullptr, nullptr},
        {"no", u"new", IDNO, false, QUESTION, nullptr},
        {"yes", u"new\\below", IDYES, true, QUESTION, nullptr},
        {"yes, in vain", u"file\\x", IDYES, false, QUESTION, FAILURE},
    };
    const CTemporaryFolder folder;
    folder.MakeFolder(u"there");
    folder.MakeFile(u"file");
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.Name);
        CScriptedUser user;
        user.WillAnswer(test.Answer);
        const CString path = folder.PathOf(test.Path);
        std::vector<CString> expected;
        for (const char16_t* form : {test.Question, test.Report})
        {
            if (form != nullptr)
                expected.emplace_back().Format(form, NativePath(path));
        }
        CString full;

        EXPECT_EQ(CFilePath::AskCreateDirectory(path, full), test.Result);

        std::vector<CString> shown;
        for (const CBoxRequest& box : user.GetBoxes())
            shown.push_back(box.m_Text);
        EXPECT_EQ(shown, expected);
        EXPECT_EQ(full, path);
        EXPECT_EQ(CFilePath::DoesFolderExist(path), test.Result);
    }
}

TEST(FilePathTest, WithoutAPathNobodyIsAsked)
{
    const CScriptedUser user;
    CString full = u"preset";

    EXPECT_FALSE(CFilePath::AskCreateDirectory(u"", full));

    EXPECT_EQ(user.GetOnlyText(), u"Error: No directory path specified");
    EXPECT_EQ(full, u"preset");
}

TEST(FilePathTest, EmptyFoldersGoUpToTheRoot)
{
    const CTemporaryFolder folder;
    folder.MakeFolder(u"a\\b\\c\\d");
    folder.MakeFile(u"a\\keep");

    CFilePath::DeleteEmptyLeafNodes(folder.PathOf(u"a\\b\\c\\d\\"), folder.GetPath() + u"\\");

    EXPECT_EQ(folder.List(), (std::vector<std::string>{"a/", "a/keep"}));
}

} // namespace
