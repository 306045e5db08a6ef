#include "utility/db/browse/Browser.h"

#include "database/DBADatabase.h"
#include "database/DBFInfo.h"
#include "database/DBFieldMap.h"
#include "database/DBFieldRules.h"
#include "platform/base/Encoding.h"

#include "support/TemporaryFolder.h"
#include "utility/db/DbSource.h"
#include "utility/output/ScreenWidth.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

constexpr char32_t UP = 0xE000; // keys that are no characters, from the private area
constexpr char32_t DOWN = 0xE001;
constexpr char32_t LEFT = 0xE002;
constexpr char32_t RIGHT = 0xE003;
constexpr char32_t PAGE_UP = 0xE004;
constexpr char32_t PAGE_DOWN = 0xE005;
constexpr char32_t HOME = 0xE006;
constexpr char32_t END = 0xE007;
constexpr char32_t ENTER = U'\n';
constexpr char32_t ESCAPE = U'\x1B';
constexpr char32_t BACKSPACE = U'\b';

CScreenKey KeyOf(char32_t character)
{
    constexpr EKey FUNCTION_KEYS[] = {EKey::Up,     EKey::Down,     EKey::Left, EKey::Right,
                                      EKey::PageUp, EKey::PageDown, EKey::Home, EKey::End};
    if (character >= UP && character <= END)
        return {FUNCTION_KEYS[character - UP]};
    if (character == ENTER)
        return {EKey::Enter};
    if (character == ESCAPE)
        return {EKey::Escape};
    if (character == BACKSPACE)
        return {EKey::Backspace};
    return {EKey::Character, character};
}

/// Parts R1 to R3000 whose values go round in 1k, 2k2, 4700, n/a and 4k7.
constexpr char16_t PARTS[] =
    u"CREATE TABLE Parts (Name TEXT, Value TEXT, Secret TEXT, Stock INTEGER, Note TEXT)";
constexpr char16_t ROWS[] =
    u"INSERT INTO Parts WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
    u"3000) "
    u"SELECT 'R' || i, CASE i % 5 WHEN 1 THEN '1k' WHEN 2 THEN '2k2' WHEN 3 THEN "
    u"'4700' WHEN 4 THEN 'n/a' ELSE '4k7' END, 'hidden', i * 7 % 1000, "
    u"CASE WHEN i % 1000 = 0 THEN '抵抗器' || char(10) || i END FROM n";

class BrowserTest : public testing::Test
{
protected:
    BrowserTest()
    {
        const CDbSource source(FromUtf8((m_Folder.GetNativePath() / "parts.db").string()));
        EXPECT_TRUE(source.Open(m_Database, EDbUse::Fill));
        m_Database.ExecuteSQL(PARTS);
        m_Database.ExecuteSQL(ROWS);
        EXPECT_TRUE(m_Database.ReadFieldNames(u"Parts", m_Map));
        m_Map.SetTableName(u"Parts");
        m_Map.FindField(u"Secret")->SetShow(false);
        m_Map.FindField(u"Value")->SetMapTo(u"Ohm");
        m_Map.FindField(u"Value")->SetParseType(PARSE_RESISTOR);
        m_Rows = std::make_unique<CBrowseRows>(m_Database, m_Map);
        m_Browser = std::make_unique<CBrowser>(*m_Rows, u"Parts");
        m_Browser->Resize(8, 72);
        Settle();
    }

    void Settle()
    {
        while (m_Browser->Work(1000))
            continue;
    }

    void Type(const std::u32string& keys)
    {
        for (const char32_t key : keys)
        {
            m_Browser->HandleKey(KeyOf(key));
            Settle();
        }
    }

    /// The text of a line, without the blanks at its end.
    std::string Line(std::size_t place)
    {
        CString text = m_Browser->Compose().m_Lines[place].m_Text;
        return ToUtf8(text.TrimRight().View());
    }

    /// What the last line says before the keys.
    std::string Status()
    {
        const std::string line = Line(7);
        const std::size_t end = line.find("  ? help");
        const std::string text = line.substr(0, end);
        return text.substr(0, text.find_last_not_of(' ') + 1);
    }

    CTemporaryFolder m_Folder;
    CDBADatabase m_Database;
    CDBFieldMap m_Map;
    std::unique_ptr<CBrowseRows> m_Rows;
    std::unique_ptr<CBrowser> m_Browser;
};

TEST_F(BrowserTest, ShowsTheColumnsOfTheMapOneRowALine)
{
    EXPECT_EQ(Line(0), "Name  Ohm   Stock  Note");
    EXPECT_EQ(Line(1), "R1    1k        7");
    EXPECT_EQ(Line(6), "R6    1k       42");
    EXPECT_EQ(Status(), " Parts  row 1 of 3,000");
    const CScreenPicture picture = m_Browser->Compose();
    ASSERT_EQ(picture.m_Lines.size(), 8u);
    EXPECT_EQ(picture.m_Lines[0].m_Look, ELook::Heading);
    EXPECT_EQ(picture.m_Lines[1].m_Look, ELook::Current);
    EXPECT_EQ(picture.m_Lines[2].m_Look, ELook::Plain);
    EXPECT_EQ(picture.m_Lines[7].m_Look, ELook::Status);
    for (const CScreenLine& line : picture.m_Lines)
        EXPECT_EQ(ScreenWidth(line.m_Text), 72);
}

TEST_F(BrowserTest, KeysMoveFilterSortAndFind)
{
    const struct
    {
        std::u32string m_Keys; // from a fresh start
        const char* m_Status;
        const char* m_First; // the row in the first line
    } cases[] = {
        {{DOWN, DOWN, UP}, " Parts  row 2 of 3,000", "R1 "},
        {{UP}, " Parts  row 1 of 3,000", "R1 "},
        {{PAGE_DOWN}, " Parts  row 7 of 3,000", "R2 "},
        {{PAGE_DOWN, PAGE_DOWN, PAGE_UP}, " Parts  row 7 of 3,000", "R7 "},
        {{END}, " Parts  row 3,000 of 3,000", "R2995 "},
        {{END, DOWN, U' ', HOME}, " Parts  row 1 of 3,000", "R1 "},
        {U"GkZ", " Parts  ? shows what the keys do", "R2995 "},
        {U"/Ohm between 4k 5k\n", " Parts  row 1 of 1,200 of 3,000  /Ohm between 4k 5k", "R3 "},
        {U"/value = 4.7K\n", " Parts  row 1 of 1,200 of 3,000  /value = 4.7K", "R3 "},
        {{U'/', U'R', U'2', U'9', U'9', BACKSPACE, U'9', U'8', ENTER},
         " Parts  row 1 of 1 of 3,000  /R2998",
         ""},
        {U"/hidden\n", " Parts  no row matches  /hidden", ""},
        {U"/Name = 4k7\n",
         " Parts  no row matches, and 'Name' has no rule: utility db rules  /Name…", ""},
        {U"/Ohm = 4k7\n\x1B", " Parts  row 1 of 3,000", "R1 "},
        {U"/Ohm = 4k7\n/\n", " Parts  row 1 of 3,000", "R1 "},
        {U"/Ohm = 4\x1B", " Parts  row 1 of 3,000", "R1 "},
        {U"sohm\n", " Parts  row 1 of 3,000  sorted by Ohm", "R1 "},
        {U"s-Stock\n", " Parts  row 1 of 3,000  sorted by -Stock", "R857 "},
        {U"s-Stock\ns\n", " Parts  row 1 of 3,000", "R1 "},
        {U"s-stock\n/Ohm = 4k7\n", " Parts  row 1 of 1,200 of 3,000  /Ohm = 4k7  sorted by -Stock",
         "R428 "},
        {U"/Ohm = 4k7\ns-Name\n\x1B", " Parts  row 1 of 3,000  sorted by -Name", "R3000 "},
        {U"/1k\ns-name\n", " Parts  row 1 of 600 of 3,000  /1k  sorted by -Name", "R2996 "},
        {U"n", " Parts  f asks what to find", "R1 "},
        {U"fR99\n", " Parts  row 99 of 3,000", "R94 "},
        {U"fR99\nnn", " Parts  row 991 of 3,000", "R986 "},
        {U"fR99\nnnN", " Parts  row 990 of 3,000", "R986 "},
        {U"fR3000\nn", " Parts  no other row matches R3000", "R2995 "},
        {U"fStock = 7\nN", " Parts  row 1 of 3,000", "R1 "},
        {U"/Ohm = 1k\nfName = R6\n", " Parts  row 2 of 600 of 3,000  /Ohm = 1k", "R1 "},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(testing::PrintToString(row.m_Keys));
        m_Rows = std::make_unique<CBrowseRows>(m_Database, m_Map);
        m_Browser = std::make_unique<CBrowser>(*m_Rows, u"Parts");
        m_Browser->Resize(8, 72);
        Settle();
        Type(row.m_Keys);
        EXPECT_EQ(Status(), row.m_Status);
        EXPECT_EQ(Line(1).substr(0, std::string(row.m_First).size()), row.m_First);
    }
}

TEST_F(BrowserTest, WrongWordsStayToBeMended)
{
    const struct
    {
        std::u32string m_Keys;
        const char* m_Prompt;
        std::u32string m_Mending;
        const char* m_Status;
    } cases[] = {
        {U"/Ohm between 4k\n",
         "/Ohm between 4k    a range takes two values, as in: between 4k7 10k", U" 5k\n",
         " Parts  row 1 of 1,200 of 3,000  /Ohm between 4k 5k"},
        {U"/Ohm = 1uF\n", "/Ohm = 1uF    the letters of '1uF' do not suit resistor", U"\b\bk\n",
         " Parts  row 1 of 600 of 3,000  /Ohm = 1k"},
        {U"sStok\n", "sort by: Stok    there is no column 'Stok'", U"\bck\n",
         " Parts  row 1 of 600 of 3,000  /Ohm = 1k  sorted by Stock"},
    };
    for (const auto& row : cases)
    {
        SCOPED_TRACE(row.m_Prompt);
        Type(row.m_Keys);
        EXPECT_EQ(Line(7), row.m_Prompt);
        Type(row.m_Mending);
        EXPECT_EQ(Status(), row.m_Status);
    }
}

TEST_F(BrowserTest, RowsAreReadAsFarAsAreLookedAt)
{
    m_Rows = std::make_unique<CBrowseRows>(m_Database, m_Map);
    m_Browser = std::make_unique<CBrowser>(*m_Rows, u"Parts");
    m_Browser->Resize(8, 72);

    while (m_Browser->IsWaiting())
        m_Browser->Work(0);

    EXPECT_LT(m_Rows->GetReadCount(), 3000);
    EXPECT_EQ(Status().substr(0, 17), " Parts  row 1 of ");
    EXPECT_EQ(Status().back(), '+');
    const int before = m_Rows->GetReadCount();
    EXPECT_TRUE(m_Browser->Work(0));
    EXPECT_GT(m_Rows->GetReadCount(), before);
}

TEST_F(BrowserTest, ColumnsMoveGrowAndAreCut)
{
    Type({END});
    EXPECT_EQ(Line(0), "Name   Ohm   Stock  Note");
    EXPECT_EQ(Line(6), "R3000  4k7       0  抵抗器\\n3000");
    Type({RIGHT, RIGHT});
    EXPECT_EQ(Line(6), "    0  抵抗器\\n3000");
    Type({RIGHT, RIGHT, RIGHT});
    EXPECT_EQ(Line(6), "抵抗器\\n3000");
    Type({LEFT, LEFT, LEFT, LEFT});
    m_Browser->Resize(8, 25);
    EXPECT_EQ(Line(6), "R3000  4k7       0  抵抗…");
    m_Browser->Resize(8, 14);
    EXPECT_EQ(Line(6), "R3000  4k7   0");
    for (const CScreenLine& line : m_Browser->Compose().m_Lines)
        EXPECT_EQ(ScreenWidth(line.m_Text), 14);
}

TEST_F(BrowserTest, AnySizeOfTheScreenHasAPicture)
{
    Type({END});
    for (const int lines : {1, 2, 3, 8, 100})
        for (const int width : {1, 2, 5, 20, 300})
        {
            SCOPED_TRACE(std::to_string(lines) + " x " + std::to_string(width));
            m_Browser->Resize(lines, width);
            if (width == 20)
                Type({ENTER}); // the row whole, for the next width too
            const CScreenPicture picture = m_Browser->Compose();
            EXPECT_EQ(picture.m_Lines.size(), static_cast<std::size_t>(std::max(lines, 3)));
            for (const CScreenLine& line : picture.m_Lines)
                EXPECT_EQ(ScreenWidth(line.m_Text), width);
        }
}

TEST_F(BrowserTest, EnterShowsTheRowWholeUntilAKey)
{
    Type(U"/R3000\n\n");
    EXPECT_EQ(Line(0), "Row 1");
    EXPECT_EQ(Line(1), "Name              R3000");
    EXPECT_EQ(Line(2), "Ohm               4k7");
    EXPECT_EQ(Line(3), "Stock             0");
    EXPECT_EQ(Line(4), "Note              抵抗器\\n3000");
    EXPECT_EQ(Line(5), "");
    m_Browser->Resize(8, 24);
    EXPECT_EQ(Line(4), "Note              抵抗器");
    EXPECT_EQ(Line(5), "                  \\n3000");
    Type(U"q");
    EXPECT_FALSE(m_Browser->IsDone());
    EXPECT_EQ(Line(1), "R3000  4k7      0  抵抗…");

    Type(U"/nothing\n\n"); // no row to show
    EXPECT_EQ(Line(0), "Name   Ohm  Stock  Note");
}

TEST_F(BrowserTest, HelpShowsUntilAKeyAndQuitEnds)
{
    Type(U"?");
    EXPECT_EQ(Line(0), "Keys");
    Type(U"q");
    EXPECT_FALSE(m_Browser->IsDone());
    EXPECT_EQ(Line(0), "Name  Ohm   Stock  Note");
    Type(U"q");
    EXPECT_TRUE(m_Browser->IsDone());

    CBrowser interrupted(*m_Rows, u"Parts");
    interrupted.HandleKey({EKey::Interrupt});
    EXPECT_TRUE(interrupted.IsDone());
}

TEST_F(BrowserTest, TheCursorStandsBehindWhatIsTyped)
{
    EXPECT_EQ(m_Browser->Compose().m_CursorColumn, -1);
    Type(U"/抵a");
    EXPECT_EQ(m_Browser->Compose().m_CursorColumn, 4);
    Type(U"\b\b");
    EXPECT_EQ(m_Browser->Compose().m_CursorColumn, 1);
    Type(U"\b");
    EXPECT_EQ(m_Browser->Compose().m_CursorColumn, -1);

    m_Browser->Resize(8, 10);
    Type(U"/Value = 4k7"); // of more than fits the end is seen
    EXPECT_EQ(Line(7), "lue = 4k7");
    EXPECT_EQ(m_Browser->Compose().m_CursorColumn, 9);
}

} // namespace
