#include "RecordsetEditFixture.h"

#include <algorithm>
#include <array>

namespace utility
{

namespace
{

/// Adds a row with the fields whose bits are set.
void AddShape(CStockSet& set, unsigned shape)
{
    set.AddNew();
    if ((shape & 1U << CStockSet::ID) != 0)
        set.m_Id = static_cast<LONG>(shape);
    if ((shape & 1U << CStockSet::NAME) != 0)
        set.m_Name.Format(u"R%u", shape);
    if ((shape & 1U << CStockSet::PRICE) != 0)
        set.m_Price = u"1.5";
    if ((shape & 1U << CStockSet::WEIGHT) != 0)
        set.m_Weight = 0.25;
    if ((shape & 1U << CStockSet::MADE) != 0)
        set.m_Made = {2024, 1, 31, 10, 11, 12, 0};
    EXPECT_TRUE(set.Update());
}

/// The bits of the fields that the current row has.
unsigned ShapeOf(const CStockSet& set)
{
    unsigned shape = 0;
    for (DWORD field = CStockSet::ID; field <= CStockSet::MADE; ++field)
        shape |= set.IsFieldStatusNull(field) ? 0U : 1U << field;
    return shape;
}

} // namespace

class RecordsetEditTest : public CRecordsetEditTest
{
};

TEST_P(RecordsetEditTest, AddNewSendsWhatWasAssignedAlsoZeroAndEmptyText)
{
    CStockSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open();
            set.AddNew();
            set.m_Id = 0;
            set.m_Name = u"";
            set.m_Weight = 0;
            EXPECT_TRUE(set.Update());
            set.AddNew();
            set.m_Id = 5;
            set.m_Price = u"7.125";
            set.m_Made = {2024, 2, 29, 23, 59, 58, 0};
            EXPECT_TRUE(set.Update());
        });

    EXPECT_EQ(set.m_Id, 1) << "the fields show the current row again";
    EXPECT_EQ(
        CountRows(
            u"[Id] = 0 AND [Name] = '' AND [Weight] = 0 AND [Price] IS NULL AND [Made] IS NULL"),
        1);
    EXPECT_EQ(
        CountRows(
            u"[Id] = 5 AND [Name] IS NULL AND [Price] = 7.125 AND [Made] = '2024-02-29 23:59:58'"),
        1);
}

TEST_P(RecordsetEditTest, AddNewWithoutAnyFieldAddsNothingAndSaysSo)
{
    CStockSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open();
            set.AddNew();
            EXPECT_FALSE(set.Update());
        });

    EXPECT_EQ(set.m_Id, 1) << "the fields show the current row again";
    EXPECT_EQ(RefusalOf([&] { set.Update(); }).Code, AFX_SQL_ERROR_NOTHING_TO_UPDATE);
    EXPECT_EQ(CountRows(u"1 = 1"), 3);
}

// Adding and deleting have more shapes than statements are kept.
TEST_P(RecordsetEditTest, RowsOfEveryShapeAreAddedFoundAndDeleted)
{
    constexpr unsigned ALL_FIELDS = 0b11111;
    Execute(u"DELETE FROM [Stock]");
    CStockSet set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Stock]"); });
    for (const char* const round : {"first", "second"})
    {
        SCOPED_TRACE(round);
        for (unsigned shape = 1; shape <= ALL_FIELDS; ++shape)
            Allowed([&] { AddShape(set, shape); });
        std::array<int, ALL_FIELDS + 1> seen{};
        Allowed(
            [&]
            {
                for (set.Requery(); !set.IsEOF(); set.MoveNext())
                {
                    ++seen[ShapeOf(set)];
                    set.Delete();
                }
            });
        EXPECT_EQ(seen[0], 0);
        EXPECT_EQ(std::count(seen.begin() + 1, seen.end(), 1), static_cast<int>(ALL_FIELDS));
        EXPECT_EQ(CountRows(u"1 = 1"), 0);
    }
}

TEST_P(RecordsetEditTest, NullMarkSendsNullWhateverTheFieldHolds)
{
    CStockSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open();
            set.AddNew();
            set.m_Id = 9;
            for (const DWORD field :
                 {CStockSet::NAME, CStockSet::PRICE, CStockSet::WEIGHT, CStockSet::MADE})
                set.SetFieldNull(field);
            EXPECT_TRUE(set.Update());
        });

    EXPECT_EQ(CountRows(u"[Id] = 9 AND [Name] IS NULL AND [Price] IS NULL AND [Weight] IS NULL "
                        u"AND [Made] IS NULL"),
              1);
}

TEST_P(RecordsetEditTest, TextWithNulOrHalfAPairIsRefusedBeforeItIsSent)
{
    const std::u16string_view texts[] = {{u"a\0b", 3}, u"\xD83D", u"x\xDD0Cy", u"\xD83Dx"};
    CStockSet set(&m_Database);
    Allowed([&] { set.Open(); });
    for (const std::u16string_view text : texts)
    {
        Allowed([&] { set.AddNew(); });
        set.m_Id = 9;
        set.m_Name = CString(text);
        const CRefusal refusal = RefusalOf([&] { set.Update(); });
        EXPECT_EQ(refusal.State, "22021") << refusal.Text;
        set.CancelUpdate();
    }
    EXPECT_EQ(CountRows(u"[Id] = 9"), 0);
}

TEST_P(RecordsetEditTest, EditSendsOnlyWhatDiffersAndFindsTheRowByItsOldValues)
{
    CStockSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open();
            set.Edit();
            EXPECT_FALSE(set.Update()) << "nothing was changed";
            set.Edit();
            set.m_Name = u"R\u2126 \"1\" `]";
            set.m_Made.year = 2025;
            EXPECT_TRUE(set.Update());
            EXPECT_EQ(set.m_Name, u"R\u2126 \"1\" `]");
            set.Edit(); // once more, by the values just written
            set.SetFieldNull(CStockSet::PRICE);
            EXPECT_TRUE(set.Update());
            EXPECT_TRUE(set.IsFieldStatusNull(CStockSet::PRICE));
            set.MoveNext();
            EXPECT_TRUE(set.IsFieldStatusNull(CStockSet::NAME));
            set.Edit(); // a row of NULLs
            set.m_Name = u"";
            set.m_Weight = 0;
            EXPECT_TRUE(set.Update());
            EXPECT_FALSE(set.IsFieldStatusNull(CStockSet::NAME));
            set.MovePrev();
            EXPECT_EQ(set.m_Made.year, 2025) << "the snapshot shows the change";
        });

    EXPECT_EQ(CountRows(u"[Id] = 1 AND [Price] IS NULL AND [Made] = '2025-01-31 10:11:12'"), 1);
    EXPECT_EQ(CountRows(u"[Id] = 2 AND [Name] = '' AND [Weight] = 0 AND [Price] IS NULL"), 1);
}

TEST_P(RecordsetEditTest, ChangeThatHitsTwoRowsIsRolledBackAlsoWithinATransaction)
{
    for (const bool isNested : {false, true})
    {
        SCOPED_TRACE(isNested ? "within a transaction" : "alone");
        Execute(u"DELETE FROM [Stock]");
        Execute(u"INSERT INTO [Stock] ([Id], [Name]) VALUES (7, 'twin')");
        Execute(u"INSERT INTO [Stock] ([Id], [Name]) VALUES (7, 'twin')");
        CStockSet set(&m_Database);
        Allowed(
            [&]
            {
                set.Open();
                if (isNested)
                {
                    ASSERT_TRUE(m_Database.BeginTrans());
                    m_Database.ExecuteSQL(u"INSERT INTO [Stock] ([Id], [Name]) VALUES (8, 'kept')");
                }
                set.Edit();
                set.m_Name = u"changed";
            });
        EXPECT_EQ(RefusalOf([&] { set.Update(); }).Code, AFX_SQL_ERROR_ROW_CHANGED);
        set.CancelUpdate();
        EXPECT_EQ(RefusalOf([&] { set.Delete(); }).Code, AFX_SQL_ERROR_ROW_CHANGED);
        set.Close();
        if (isNested)
        {
            EXPECT_TRUE(m_Database.CommitTrans());
        }

        EXPECT_EQ(CountRows(u"[Name] = 'twin'"), 2);
        EXPECT_EQ(CountRows(u"[Name] = 'kept'"), isNested ? 1 : 0);
    }
}

TEST_P(RecordsetEditTest, DeletedRowIsAHoleThatMovesMaySkip)
{
    CStockSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open(AFX_DB_USE_DEFAULT_TYPE, nullptr, CRecordset::skipDeletedRecords);
            set.MoveNext();
            set.Delete();
            EXPECT_TRUE(set.IsDeleted());
            EXPECT_TRUE(set.IsFieldStatusNull(CStockSet::ID));
        });
    EXPECT_EQ(RefusalOf([&] { set.Edit(); }).Code, AFX_SQL_ERROR_NO_ROW);
    Allowed(
        [&]
        {
            set.MoveFirst();
            set.MoveNext();
            EXPECT_EQ(set.m_Id, 3);
            set.MovePrev();
            EXPECT_EQ(set.m_Id, 1);
        });
    EXPECT_EQ(CountRows(u"[Id] = 2"), 0);
}

TEST_P(RecordsetEditTest, BlobAndLongTextTravelWhole)
{
    MakeDocs();
    const int sizes[] = {0, 1, 4096, 300000};
    CString words;
    while (words.GetLength() < 8000)
        words += u"4k7\u2126 \U0001F50C";

    CDocSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Docs]");
            for (const int size : sizes)
            {
                set.AddNew();
                set.m_Id = size;
                set.m_Words = words.Left(words.GetLength() - 3 + size % 2);
                set.SetBody(size);
                EXPECT_TRUE(set.Update());
            }
            set.Requery();
            for (const int size : sizes)
            {
                SCOPED_TRACE(size);
                ASSERT_FALSE(set.IsEOF());
                EXPECT_EQ(set.m_Id, size);
                EXPECT_EQ(set.m_Words, words.Left(words.GetLength() - 3 + size % 2));
                ASSERT_EQ(set.m_Body.m_dwDataLength, static_cast<DWORD>(size));
                const auto* const bytes = static_cast<const BYTE*>(GlobalLock(set.m_Body.m_hData));
                for (int index = 0; index < size; ++index)
                    ASSERT_EQ(bytes[index], static_cast<BYTE>(index * 7)) << index;
                set.MoveNext();
            }
        });
}

TEST_P(RecordsetEditTest, TextBeyondItsLimitIsCutAndItsRowRefusesAnEdit)
{
    CString longText(u'x', 599);
    longText.SetAt(511, 0xD83D); // a pair across the limit of 512
    longText.SetAt(512, 0xDD0C);
    CStockSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open();
            set.AddNew();
            set.m_Id = 9;
            set.m_Name = longText;
            set.Update();
            set.Requery();
            EXPECT_FALSE(set.IsFieldCut(CStockSet::NAME));
            set.MoveLast();
        });

    EXPECT_EQ(set.m_Id, 9);
    EXPECT_EQ(set.m_Name, longText.Left(511));
    EXPECT_TRUE(set.IsFieldCut(CStockSet::NAME));
    EXPECT_EQ(RefusalOf([&] { set.Edit(); }).Code, AFX_SQL_ERROR_TEXT_WAS_CUT);
    EXPECT_EQ(RefusalOf([&] { set.Delete(); }).Code, AFX_SQL_ERROR_TEXT_WAS_CUT);
}

TEST_P(RecordsetEditTest, RefusesWhatCannotBeEdited)
{
    CStockSet set(&m_Database);
    EXPECT_EQ(RefusalOf([&] { set.AddNew(); }).Code, AFX_SQL_ERROR_NO_ROW);
    EXPECT_EQ(RefusalOf([&] { set.Update(); }).Code, AFX_SQL_ERROR_NOTHING_TO_UPDATE);
    struct CCase
    {
        const char* Name;
        LPCWSTR Sql;
        DWORD Options;
    };
    for (const CCase& item :
         {CCase{"two tables", u"SELECT a.* FROM [Stock] a, [Stock] b", CRecordset::none},
          CCase{"join", u"SELECT a.* FROM [Stock] a JOIN [Stock] b ON a.[Id] = b.[Id]",
                CRecordset::none},
          CCase{"distinct", u"SELECT DISTINCT * FROM [Stock]", CRecordset::none},
          CCase{"read-only set", nullptr, CRecordset::readOnly}})
    {
        SCOPED_TRACE(item.Name);
        Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, item.Sql, item.Options); });
        EXPECT_FALSE(set.CanUpdate());
        EXPECT_EQ(RefusalOf([&] { set.Edit(); }).State, "25006");
        set.Close();
    }
    CDatabase reader;
    Allowed([&] { reader.Open(nullptr, FALSE, TRUE, m_Connect); });
    CStockSet readerSet(&reader);
    Allowed([&] { readerSet.Open(); });
    EXPECT_EQ(RefusalOf([&] { readerSet.Delete(); }).State, "25006");
}

UTILITY_ON_ALL_SERVERS(RecordsetEditTest);

} // namespace utility
