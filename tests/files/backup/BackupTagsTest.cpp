#include "files/FilePath.h"
#include "files/backup/BackupFileInfo.h"
#include "files/backup/BackupFixture.h"
#include "platform/system/file/NativePath.h"

#include "support/FixedClock.h"

#include <algorithm>
#include <numeric>

using namespace utility;

namespace
{

constexpr int SAVES = 5;

struct CTag
{
    const char16_t* m_Text;
    bool m_IsRenumbered;
    bool m_IsYoungestFirst;
};
constexpr CTag TAGS[] = {
    {u"$(Increment)", true, false}, {u"$(Decrement)", true, true}, {u"$(Infinite)", false, false}};

struct CStart
{
    const char* m_What;
    const char16_t* m_Tail;     // of the template
    std::vector<int> m_Numbers; // of the copies that are there
    bool m_AreOfOneAge;         // so that only their names tell which is the oldest
};

class BackupTagsTest : public CBackupFixture
{
protected:
    void Use(EBackupKind kind, const CString& nameTemplate, int count)
    {
        for (const auto& entry : std::filesystem::directory_iterator(m_Folder.GetNativePath()))
            std::filesystem::remove(entry);
        m_Folder.MakeFile(u"board.pcb", DESIGN_BYTES);
        m_Contents.clear();
        m_Kind = kind;
        if (kind == EBackupKind::Backup)
        {
            CBackupFiles::SetBackupFilenameTemplate(nameTemplate);
            CBackupFiles::SetBackupCopyCount(count);
            return;
        }
        CBackupFiles::SetSecurityCopyFilenameTemplate(nameTemplate);
        CBackupFiles::SetSecurityCopyCount(count);
    }

    void Put(const CString& name, int minutesOld)
    {
        m_Contents.push_back("copy " + std::to_string(m_Contents.size() + 1));
        m_Folder.MakeFile(name, m_Contents.back());
        SetAge(name, minutesOld);
    }

    CString Save(int minutesOld)
    {
        CFilePath name;
        EXPECT_TRUE(CBackupFiles::MakeName(m_Kind, name, m_Design, CString(), true, true));
        EXPECT_FALSE(CFilePath::DoesFileExist(name)) << "no copy is overwritten";
        Put(name.GetFileNameAndExtension(), minutesOld);
        return name.GetFileNameAndExtension();
    }

    void ExpectName(const CString& name) const
    {
        EXPECT_EQ(CBackupFiles::IsBackupName(name), m_Kind == EBackupKind::Backup);
        EXPECT_EQ(CBackupFiles::IsSecurityCopyName(name), m_Kind == EBackupKind::SecurityCopy);
        EXPECT_FALSE(CBackupFiles::IsRestorePointName(name));
    }

    /// The copies, the oldest first: `count` of them, numbered by their tag.
    void ExpectCopies(const CTag& tag, int count, bool areOfOneAge) const
    {
        CBackupFileList files;
        const bool isBackup = m_Kind == EBackupKind::Backup;
        const auto rows =
            CBackupFiles::ListFiles(files, CFilePath(m_Design), !isBackup, isBackup, false, false);
        const std::size_t found = rows.size() - 1;
        EXPECT_EQ(found, std::min(static_cast<std::size_t>(count), m_Contents.size()));
        std::vector<int> numbers;
        for (std::size_t i = 0; i < found; ++i)
        {
            const CBackupFileInfo& file = *rows[i + 1].m_File;
            numbers.push_back(file.m_Number);
            const CString name = CFilePath(file.m_Path).GetFileNameAndExtension();
            EXPECT_TRUE(areOfOneAge ||
                        m_Folder.Read(name) == m_Contents[m_Contents.size() - found + i]);
        }
        std::vector<int> wanted(found);
        std::iota(wanted.begin(), wanted.end(), 1);
        if (tag.m_IsYoungestFirst && !areOfOneAge)
            std::ranges::reverse(wanted);
        if (tag.m_IsRenumbered)
        {
            EXPECT_EQ(numbers, wanted);
            return;
        }
        const auto isHigh = [&](int number)
        {
            return number >= numbers.back();
        };
        EXPECT_EQ(std::ranges::count_if(numbers, isHigh), 1) << "the youngest has the highest";
    }

    /// Several saves, a day between them.
    void SaveAndCheck(const CTag& tag, int count, const CStart& start)
    {
        const CString prefix = m_Kind == EBackupKind::Backup ? u"b " : u"s ";
        const CString text = prefix + tag.m_Text + start.m_Tail;
        SCOPED_TRACE(testing::Message() << testing::PrintToString(text) << ", " << count
                                        << " copies, " << start.m_What);
        Use(m_Kind, text, count);
        for (const int number : start.m_Numbers)
        {
            CString name;
            name.Format(u"%s%d%s.pcb", prefix, number, start.m_Tail);
            Put(name, start.m_AreOfOneAge ? 9 : 60 - static_cast<int>(m_Contents.size()));
        }
        for (int save = 0; save < SAVES; ++save)
        {
            const WORD day = static_cast<WORD>(save + 1);
            const CFixedClock clock({2024, 12, 0, day, 12, 59, 58, 0});
            ExpectName(Save(start.m_AreOfOneAge ? 9 : 9 - save));
            ExpectCopies(tag, count, start.m_AreOfOneAge);
        }
    }

    EBackupKind m_Kind = EBackupKind::Backup;
    std::vector<std::string> m_Contents; // of all copies that ever were, the oldest first
};

TEST_F(BackupTagsTest, EachTagKeepsTheYoungestCopiesWhateverIsThere)
{
    const CStart starts[] = {{"nothing", u"", {}, false},
                             {"gaps", u"", {2, 5, 9}, false},
                             {"wrong order", u"", {3, 1, 2}, false},
                             {"more than may stay", u" x", {4, 3, 2, 1}, false},
                             {"equal times", u"", {1, 2, 3}, true},
                             {"dates", u" $(Date)", {}, false}};
    for (const EBackupKind kind : {EBackupKind::Backup, EBackupKind::SecurityCopy})
    {
        m_Kind = kind;
        for (const CTag& tag : TAGS)
        {
            for (const CStart& start : starts)
            {
                SaveAndCheck(tag, 1, start);
                SaveAndCheck(tag, 3, start);
            }
        }
    }
}

TEST_F(BackupTagsTest, CopiesOfOneSecondAreToldApart)
{
    using namespace std::chrono_literals;
    namespace fs = std::filesystem;
    for (const CTag& tag : TAGS)
    {
        SCOPED_TRACE(testing::PrintToString(CString(tag.m_Text)));
        Use(EBackupKind::Backup, CString(u"b ") + tag.m_Text, 3);
        const auto second =
            std::chrono::floor<std::chrono::seconds>(fs::file_time_type::clock::now());
        for (int save = 0; save < SAVES; ++save)
        {
            const fs::path copy = DiskPathBytes(m_Folder.PathOf(Save(0)));
            fs::last_write_time(copy, second + save * 10ms);
            ExpectCopies(tag, 3, false);
        }
    }
}

TEST_F(BackupTagsTest, ATemplateThatNamesEveryVariableWrongIsATextLikeOthers)
{
    const CString text = u"$(DesignNam) $(Incremen) $Decrement) $ (Infinite) $(Date $(Tim) "
                         u"$((Label)";
    for (const int count : {1, 3})
    {
        SCOPED_TRACE(count);
        Use(EBackupKind::Backup, text, count);

        const CString first = Save(9);
        ExpectName(first);
        EXPECT_EQ(first, text + (count == 1 ? u".pcb" : u"1.pcb"));
        if (count == 1)
            continue; // the next copy replaces it
        for (int save = 1; save < SAVES; ++save)
        {
            ExpectName(Save(9 - save));
            ExpectCopies(TAGS[0], count, false);
        }
    }
}

} // namespace
