#include "files/backup/BackupTemplate.h"

#include "files/backup/BackupMatch.h"
#include "resources/StringIds.h"
#include "text/time/TimeFormatter.h"

#include "support/FixedClock.h"
#include "support/PrintText.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

CString PartsOf(const CBackupTemplate& pattern)
{
    CString parts;
    for (const CBackupNamePart& part : pattern.GetParts())
        parts += (part.IsTagPart() ? u"<" : u"[") + part.m_Text + (part.IsTagPart() ? u">" : u"]");
    return parts;
}

TEST(BackupTemplateTest, TemplatesAreCutIntoTextsAndTags)
{
    struct CCase
    {
        const char16_t* m_Template;
        const char16_t* m_Design;
        const char16_t* m_Parts;
        UINT m_NumberTag;
        bool m_HasLabel;
        bool m_MatchesBackwards;
    };
    for (const CCase& test : {
             CCase{u"", u"x", u"[]", 0, false, false},
             CCase{u"plain", u"x", u"[plain]", 0, false, false},
             CCase{u"Copy of $(DesignName)", u"x", u"[Copy of x]", 0, false, true},
             CCase{u"Copy of $(DesignName)", u"", u"[Copy of ]<$(DesignName)>", 0, false, true},
             CCase{u"$(dEsIgNnAmE)!", u"x", u"[x!]", 0, false, true},
             CCase{u"$(increment)-$(DesignName)", u"x", u"<$(Increment)>[-x]", IDS_TOKEN_INCREMENT,
                   false, false},
             CCase{u"$(Decrement)$(Date)", u"x", u"<$(Decrement)>[ ]<$(Date)>", IDS_TOKEN_DECREMENT,
                   false, false},
             CCase{u"$(Time)$(Infinite)", u"x", u"<$(Time)>[ ]<$(Infinite)>", IDS_TOKEN_INFINITE,
                   false, true},
             CCase{u"$(Label) a $(Label)", u"x", u"<$(Label)>[ a ]<$(Label)>", 0, true, true},
             CCase{u"a$(Increment)b$(Infinite)c", u"x", u"[a]<$(Increment)>[bc]",
                   IDS_TOKEN_INCREMENT, false, false},
             CCase{u"$(Nonsense)", u"x", u"[$(Nonsense)]", 0, false, false},
             CCase{u"$($(Date)$(", u"x", u"[$(]<$(Date)>[$(]", 0, false, true},
             CCase{u"$(Date", u"x", u"[$(Date]", 0, false, false},
             CCase{u"$(DesignName)", u"$(Date)", u"[$(Date)]", 0, false, true},
         })
    {
        SCOPED_TRACE(testing::PrintToString(CString(test.m_Template)));
        const CBackupTemplate pattern(test.m_Template, test.m_Design);

        EXPECT_EQ(PartsOf(pattern), test.m_Parts);
        EXPECT_EQ(pattern.GetNumberTag(), test.m_NumberTag);
        EXPECT_EQ(pattern.HasLabel(), test.m_HasLabel);
        EXPECT_EQ(pattern.MatchesBackwards(), test.m_MatchesBackwards);
    }
}

TEST(BackupTemplateTest, ANumberJoinsWhereSeveralCopiesWouldHaveOneName)
{
    struct CCase
    {
        const char16_t* m_Template;
        int m_Count;
        const char16_t* m_Parts;
    };
    for (const CCase& test :
         {CCase{u"a", 2, u"[a]<$(Increment)>"}, CCase{u"a", 1, u"[a]"},
          CCase{u"a$(Infinite)", 3, u"[a]<$(Infinite)>"}, CCase{u"a$(Label)", 3, u"[a]<$(Label)>"},
          CCase{u"$(Time)", 2, u"<$(Time)>[ ]<$(Increment)>"}})
    {
        SCOPED_TRACE(testing::PrintToString(CString(test.m_Template)));
        CBackupTemplate pattern(test.m_Template, u"x");
        pattern.AddNumber(test.m_Count);
        EXPECT_EQ(PartsOf(pattern), test.m_Parts);
    }
}

TEST(BackupTemplateTest, NamesHoldNumberLabelDateAndTimeWithoutForbiddenCharacters)
{
    const CFixedClock clock({2024, 12, 2, 31, 12, 59, 58, 0});
    const CBackupTemplate pattern(u"$(DesignName) $(Increment) $(Label) $(Date) $(Time)", u"x");
    const CTimeFormatter other(2020, 1, 2, 3, 4, 5);

    EXPECT_EQ(pattern.BuildMultipleCopyName(7, u"a/b", nullptr), u"x 7 a-b 31-12-2024 12-59-58");
    EXPECT_EQ(pattern.BuildMultipleCopyName(-1, u"", &other), u"x -1  02-01-2020 03-04-05");
    EXPECT_EQ(CBackupTemplate(u"a$(DesignName)b", u"").BuildMultipleCopyName(1, u"", nullptr),
              u"ab");
}

TEST(BackupTemplateTest, NamesAreMatchedAndTheirNumbersFound)
{
    struct CCase
    {
        const char16_t* m_Template;
        const char16_t* m_Name;
        bool m_Matches;
        int m_Number = -1;
        const char16_t* m_Before = u"";
        const char16_t* m_After = u"";
    };
    for (const CCase& test : {
             CCase{u"Copy of $(DesignName)", u"copy OF board", true},
             CCase{u"Copy of $(DesignName)", u"Copy of ", true},
             CCase{u"Copy of $(DesignName)", u"Copy o", false},
             CCase{u"Copy of $(DesignName)", u"A Copy of board", false},
             CCase{u"$(DesignName)", u"anything", true},
             CCase{u"$(DesignName)", u"", false},
             CCase{u"", u"x", false},
             CCase{u"$(DesignName) $(Date)", u"R1 12-03-2024", true},
             CCase{u"$(DesignName) $(Date)", u"R1 12-03", false},
             CCase{u"$(DesignName) $(Date)", u"R1 1.2.3", true},
             CCase{u"$(DesignName) $(Date)", u"R1 1--2-3", false},
             CCase{u"$(Date) at $(Time)", u"1-2-3 at 4-5-6", true},
             CCase{u"$(Date) at $(Time)", u"1-2-3 at 4-5-6x", false},
             CCase{u"$(DesignName)$(Increment)", u"board12", true, 12, u"board", u""},
             CCase{u"$(DesignName)$(Increment)", u"board", false},
             CCase{u"$(Increment)$(DesignName)", u"12board", true, 12, u"", u"board"},
             CCase{u"a $(Decrement) b", u"a 007 b", true, 7, u"a ", u" b"},
             CCase{u"a $(Decrement) b", u"a  b", false},
             CCase{u"a$(Infinite)", u"a99999999999999999999", true, 2147483647, u"a", u""},
             CCase{u"$(Label) $(Infinite) end", u"x 1 2 END", true, 2, u"x 1 ", u" END"},
             CCase{u"($(Label)) $(DesignName)$(Increment)", u"(a) c3", true, 3, u"(a) c", u""},
             CCase{u"$(DesignName) rev2$(Increment)", u"a rev21", true, 1, u"a rev2", u""},
             CCase{u"$(DesignName) rev2$(Increment)", u"a rev2", false},
             CCase{u"$(Increment)2 $(DesignName)", u"122 a", true, 12, u"", u"2 a"},
             CCase{u"$(Label) 7$(Date)", u"x 71-2-3", true},
             CCase{u"$(Label) 7$(Date)", u"x 7-2-3", false},
             CCase{u"$(Nonsense) $(Increment)", u"$(nonsense) 4", true, 4, u"$(nonsense) ", u""},
         })
    {
        SCOPED_TRACE(testing::PrintToString(CString(test.m_Template) + u" on " + test.m_Name));
        CBackupNameMatch match;

        EXPECT_EQ(MatchBackupFilename(CString(test.m_Name).View(),
                                      CBackupTemplate(test.m_Template, u""), match),
                  test.m_Matches);

        EXPECT_EQ(match.m_Number, test.m_Number);
        EXPECT_EQ(match.m_Before, test.m_Before);
        EXPECT_EQ(match.m_After, test.m_After);
    }
}

TEST(BackupTemplateTest, AFixedLabelMatchesItselfAlone)
{
    struct CCase
    {
        const char16_t* m_Template;
        const char16_t* m_Name;
        bool m_Matches;
    };
    for (const CCase& test :
         {CCase{u"R $(Label)", u"r A-B", true}, CCase{u"R $(Label)", u"R a-bc", false},
          CCase{u"R $(Label)", u"R xa-b", false},
          CCase{u"$(Increment) $(DesignName) ($(Label))", u"12 x (a-b)", true},
          CCase{u"$(Label)$(Date)", u"a-b1-2-3", true}, CCase{u"R", u"R", true}})
    {
        SCOPED_TRACE(testing::PrintToString(CString(test.m_Template) + u" on " + test.m_Name));
        CBackupTemplate pattern(test.m_Template, u"x");
        CBackupNameMatch match;
        pattern.FixLabel(u"a/b");
        EXPECT_EQ(MatchBackupFilename(CString(test.m_Name).View(), pattern, match), test.m_Matches);
    }
}

TEST(BackupTemplateTest, ALongNameAndTemplateAreMatchedInBoundedTime)
{
    // A walk with a way back would need more steps than there are atoms.
    CString text;
    for (int i = 0; i < 40; ++i)
        text += u"$(Label)aaaaaaab";
    CBackupNameMatch match;

    EXPECT_FALSE(MatchBackupFilename(CString(u'a', 250).View(), CBackupTemplate(text, u""), match));
}

} // namespace
