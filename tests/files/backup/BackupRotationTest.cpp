#include "files/AppFolder.h"
#include "files/FilePath.h"
#include "files/backup/BackupFixture.h"

using namespace utility;

namespace
{

class BackupRotationTest : public CBackupFixture
{
protected:
    void Use(const CString& nameTemplate, int count)
    {
        CBackupFiles::SetBackupFilenameTemplate(nameTemplate);
        CBackupFiles::SetBackupCopyCount(count);
    }

    /// The name that the next copy gets once room is made for it.
    CString Rotate(bool apply = true) const
    {
        CFilePath name;
        EXPECT_TRUE(CBackupFiles::MakeBackupName(name, m_Design, apply));
        return name.GetFileNameAndExtension();
    }

    /// Each copy as "name=content", but the design.
    std::string Copies() const
    {
        std::string copies;
        for (const std::string& name : m_Folder.List())
        {
            if (name != "board.pcb")
                copies += name + "=" + m_Folder.Read(CString(name.c_str())) + "|";
        }
        return copies;
    }
};

TEST_F(BackupRotationTest, EachNumberTagRotatesInItsWay)
{
    struct CCase
    {
        const char16_t* m_Template;
        int m_Count;
        const char16_t* m_Next;
        const char* m_Left; // of the copies 1, 2 and 3, of which 3 is the youngest
    };
    for (const CCase& test : {
             CCase{u"b$(Increment)", 1, u"b1.pcb", ""},
             CCase{u"b$(Decrement)", 1, u"b1.pcb", ""},
             CCase{u"b$(Infinite)", 1, u"b4.pcb", ""},
             CCase{u"b$(Increment)", 3, u"b3.pcb", "b1.pcb=b2.pcb|b2.pcb=b3.pcb|"},
             CCase{u"b$(Decrement)", 3, u"b1.pcb", "b2.pcb=b3.pcb|b3.pcb=b2.pcb|"},
             CCase{u"b$(Infinite)", 3, u"b4.pcb", "b2.pcb=b2.pcb|b3.pcb=b3.pcb|"},
             CCase{u"b$(Increment)", 0, u"b4.pcb", "b1.pcb=b1.pcb|b2.pcb=b2.pcb|b3.pcb=b3.pcb|"},
             CCase{u"b$(Decrement)", 9, u"b1.pcb", "b2.pcb=b3.pcb|b3.pcb=b2.pcb|b4.pcb=b1.pcb|"},
             CCase{u"b$(Increment)$(Infinite)", 3, u"b3.pcb", "b1.pcb=b2.pcb|b2.pcb=b3.pcb|"},
             CCase{u"b", 3, u"b3.pcb", "b1.pcb=b2.pcb|b2.pcb=b3.pcb|"},
         })
    {
        SCOPED_TRACE(testing::PrintToString(CString(test.m_Template)) + " " +
                     std::to_string(test.m_Count));
        Use(test.m_Template, test.m_Count);
        for (const char16_t number : {u'1', u'2', u'3'})
            MakeCopy(u"b" + CString(number) + u".pcb", u'9' - number);

        EXPECT_EQ(Rotate(), test.m_Next);

        EXPECT_EQ(Copies(), test.m_Left);
        for (const auto& entry : std::filesystem::directory_iterator(m_Folder.GetNativePath()))
            std::filesystem::remove(entry);
    }
}

TEST_F(BackupRotationTest, WithoutApplyingTheNameIsToldAndNothingHappens)
{
    struct CCase
    {
        const char16_t* m_Template;
        const char16_t* m_Next;
    };
    MakeCopy(u"b1.pcb", 2);
    MakeCopy(u"b5.pcb", 1);
    const std::string before = Copies();
    for (const CCase& test :
         {CCase{u"b$(Increment)", u"b2.pcb"}, CCase{u"b$(Decrement)", u"b1.pcb"},
          CCase{u"b$(Infinite)", u"b6.pcb"}})
    {
        SCOPED_TRACE(testing::PrintToString(CString(test.m_Template)));
        Use(test.m_Template, 2);
        EXPECT_EQ(Rotate(false), test.m_Next);
        EXPECT_EQ(Copies(), before);
    }
}

TEST_F(BackupRotationTest, NumbersRunByAgeWhateverTheyWere)
{
    struct CCase
    {
        const char* m_What;
        std::vector<const char16_t*> m_ByAge; // the oldest first
        const char* m_Left;
    };
    Use(u"b$(Increment)", 9);
    for (const CCase& test : {
             CCase{"gaps", {u"b2.pcb", u"b5.pcb"}, "b1.pcb=b2.pcb|b2.pcb=b5.pcb|"},
             CCase{"swapped", {u"b2.pcb", u"b1.pcb"}, "b1.pcb=b2.pcb|b2.pcb=b1.pcb|"},
             CCase{"a ring",
                   {u"b3.pcb", u"b1.pcb", u"b2.pcb"},
                   "b1.pcb=b3.pcb|b2.pcb=b1.pcb|b3.pcb=b2.pcb|"},
             CCase{"a chain and a ring",
                   {u"b7.pcb", u"b4.pcb", u"b1.pcb", u"b3.pcb"},
                   "b1.pcb=b7.pcb|b2.pcb=b4.pcb|b3.pcb=b1.pcb|b4.pcb=b3.pcb|"},
             CCase{"zeros in front", {u"b001.pcb", u"b1.pcb"}, "b1.pcb=b001.pcb|b2.pcb=b1.pcb|"},
             CCase{"another case", {u"B1.PCB", u"b2.pcb"}, "B1.PCB=B1.PCB|b2.pcb=b2.pcb|"},
             CCase{"a great number",
                   {u"b99999999999.pcb", u"b1.pcb"},
                   "b1.pcb=b99999999999.pcb|b2.pcb=b1.pcb|"},
         })
    {
        SCOPED_TRACE(test.m_What);
        int age = 9;
        for (const char16_t* name : test.m_ByAge)
            MakeCopy(name, age--);

        Rotate();

        EXPECT_EQ(Copies(), test.m_Left);
        for (const auto& entry : std::filesystem::directory_iterator(m_Folder.GetNativePath()))
            std::filesystem::remove(entry);
    }
}

TEST_F(BackupRotationTest, ADesignThatEndsInADigitHasCopiesOfItsOwn)
{
    CBackupFiles::SetBackupCopyCount(3);
    m_Design = m_Folder.MakeFile(u"board2.pcb");
    MakeCopy(u"Backup Copy of board21.pcb", 2);
    MakeCopy(u"Backup Copy of board23.pcb", 1);

    EXPECT_EQ(Rotate(), u"Backup Copy of board23.pcb");

    EXPECT_TRUE(m_Folder.Exists(u"Backup Copy of board21.pcb"));
    EXPECT_TRUE(m_Folder.Exists(u"Backup Copy of board22.pcb"));
}

TEST_F(BackupRotationTest, OfEqualTimesTheFirstNameIsTheOldest)
{
    Use(u"b$(Increment)", 3);
    for (const char16_t* name : {u"b1.pcb", u"b2.pcb", u"b3.pcb"})
        MakeCopy(name, 5);

    EXPECT_EQ(Rotate(), u"b3.pcb");

    EXPECT_EQ(Copies(), "b1.pcb=b2.pcb|b2.pcb=b3.pcb|");
}

TEST_F(BackupRotationTest, DatesOfOtherDaysAreCopiesToo)
{
    Use(u"b $(Date) $(Increment)", 3);
    MakeCopy(u"b 01-02-2020 1.pcb", 3);
    MakeCopy(u"b 03-02-2020 2.pcb", 2);
    MakeCopy(u"b 02-02-2020 3.pcb", 1);

    EXPECT_TRUE(Rotate().Right(6) == u" 3.pcb");

    EXPECT_EQ(Copies(), "b 02-02-2020 2.pcb=b 02-02-2020 3.pcb|"
                        "b 03-02-2020 1.pcb=b 03-02-2020 2.pcb|");
}

TEST_F(BackupRotationTest, StrangersAndTheDesignAreLeftAlone)
{
    Use(u"$(Label)$(Date)", 1); // claims whatever ends in a date
    const CString design = MakeCopy(u"board 1-2-3.pcb", 9);
    MakeCopy(u"b 1-2-3.sch", 9);
    m_Folder.MakeFolder(u"b 1-2-3.pcb");
    CFilePath name;

    EXPECT_TRUE(CBackupFiles::MakeBackupName(name, design, true));

    EXPECT_TRUE(m_Folder.Exists(u"board 1-2-3.pcb"));
    EXPECT_TRUE(m_Folder.Exists(u"b 1-2-3.sch"));
    EXPECT_TRUE(m_Folder.Exists(u"b 1-2-3.pcb"));
}

TEST_F(BackupRotationTest, ACopyThatCannotBeDeletedStaysAndTheWalkGoesOn)
{
    Use(u"b$(Increment)", 2);
    MakeCopy(u"b1.pcb", 3);
    MakeCopy(u"b2.pcb", 2);
    MakeCopy(u"b3.pcb", 1);
    std::filesystem::permissions(m_Folder.GetNativePath() / "b2.pcb", std::filesystem::perms(0444));

    EXPECT_EQ(Rotate(), u"b2.pcb");

    EXPECT_EQ(Copies(), "b1.pcb=b3.pcb|b2.pcb=b2.pcb|");
}

TEST_F(BackupRotationTest, ADesignWithoutExtensionHasCopiesWithoutOne)
{
    Use(u"b$(Increment)", 3);
    m_Design = m_Folder.MakeFile(u"design");
    MakeCopy(u"b1", 2);
    MakeCopy(u"b2.pcb", 1);

    EXPECT_EQ(Rotate(), u"b2");
}

} // namespace
