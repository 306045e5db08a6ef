#include "DatabaseFixture.h"

namespace utility
{

class RecordsetEditTest : public CDatabaseTest
{
protected:
    void SetUp() override
    {
        CDatabaseTest::SetUp();
        Execute(CStockSet::CREATE);
        Execute(u"INSERT INTO [Stock] VALUES (1, 'R1', 0.1, 4.7e-6, '2024-01-31 10:11:12')");
        Execute(u"INSERT INTO [Stock] VALUES (2, NULL, NULL, NULL, NULL)");
        Execute(u"INSERT INTO [Stock] VALUES (3, 'C3', 12.5, 0.1, '1999-12-31 23:59:59')");
    }

    LONG CountRows(const CString& condition)
    {
        CStockSet set(&m_Database);
        LONG count = 0;
        Allowed(
            [&]
            {
                set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Stock] WHERE " + condition);
                for (; !set.IsEOF(); set.MoveNext())
                    ++count;
            });
        return count;
    }
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

TEST_P(RecordsetEditTest, RowChangedByAnotherUserIsLeftAloneAndTold)
{
    CStockSet set(&m_Database);
    CDatabase other;
    Allowed(
        [&]
        {
            set.Open();
            set.MoveLast();
            set.MoveFirst();
            other.Open(nullptr, FALSE, FALSE, m_Connect);
            other.ExecuteSQL(u"UPDATE [Stock] SET [Price] = 99 WHERE [Id] = 1");
            set.Edit();
            set.m_Name = u"mine";
        });

    const CRefusal update = RefusalOf([&] { set.Update(); });
    EXPECT_EQ(update.Code, AFX_SQL_ERROR_ROW_CHANGED) << update.Text;
    set.CancelUpdate();
    const CRefusal removal = RefusalOf([&] { set.Delete(); });
    EXPECT_EQ(removal.State, "44000") << removal.Text;

    EXPECT_EQ(CountRows(u"[Id] = 1 AND [Name] = 'R1' AND [Price] = 99"), 1);
}

/// A row's number beside a real one of either width.
class CRealSet : public CRecordset
{
public:
    explicit CRealSet(CDatabase* database) : CRecordset(database) { m_nFields = 3; }

    CString GetDefaultSQL() override { return u"SELECT * FROM [Reals] ORDER BY [Id]"; }
    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[Id]", m_Id);
        RFX_Double(exchange, u"[Wide]", m_Wide);
        RFX_Single(exchange, u"[Narrow]", m_Narrow);
    }

    LONG m_Id = 0;
    double m_Wide = 0;
    float m_Narrow = 0;
};

TEST_P(RecordsetEditTest, RealNumbersAreFoundAgainAndAnotherUsersChangeOfThemIsTold)
{
    constexpr LONG ROWS = 60;
    const char16_t* const narrow = IsOn(EServer::MariaDB) ? u"FLOAT" : u"REAL";
    Execute(CString(u"CREATE TABLE [Reals] ([Id] INTEGER, [Wide] DOUBLE PRECISION, [Narrow] ") +
            narrow + u")");
    CRealSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open();
            for (LONG row = 0; row < ROWS; ++row)
            {
                set.AddNew();
                set.m_Id = row;
                set.m_Wide = (row - 29) * (row % 2 == 0 ? 0.1 : 1e-7);
                set.m_Narrow = static_cast<float>(row) / 7.0F;
                set.Update();
            }
            set.Requery();
            for (; !set.IsEOF(); set.MoveNext())
            {
                SCOPED_TRACE(set.m_Id);
                set.Edit();
                set.m_Id += 1000;
                EXPECT_TRUE(set.Update());
            }
        });
    Execute(u"UPDATE [Reals] SET [Wide] = [Wide] + 1 WHERE [Id] = 1003");
    Execute(u"UPDATE [Reals] SET [Narrow] = 2.5 WHERE [Id] = 1004");
    for (const LONG row : {3, 4})
    {
        set.SetAbsolutePosition(row + 1);
        Allowed([&] { set.Edit(); });
        set.m_Id = 1;
        EXPECT_EQ(RefusalOf([&] { set.Update(); }).Code, AFX_SQL_ERROR_ROW_CHANGED) << row;
        set.CancelUpdate();
    }
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
    const LPCWSTR blob = IsOn(EServer::PostgreSQL) ? u"BYTEA"
                         : IsOn(EServer::MariaDB)  ? u"LONGBLOB"
                                                   : u"BLOB";
    CString create;
    create.Format(u"CREATE TABLE [Docs] ([Id] INTEGER, [Body] %s, [Words] %s)", blob,
                  IsOn(EServer::MariaDB) ? u"LONGTEXT" : u"TEXT");
    Execute(create);
    struct CDocs : CRecordset
    {
        explicit CDocs(CDatabase* database) : CRecordset(database) { m_nFields = 3; }
        void DoFieldExchange(CFieldExchange* exchange) override
        {
            exchange->SetFieldType(CFieldExchange::outputColumn);
            RFX_Long(exchange, u"[Id]", m_Id);
            RFX_LongBinary(exchange, u"[Body]", m_Body);
            RFX_Text(exchange, u"[Words]", m_Words, 8196);
        }
        LONG m_Id = 0;
        CLongBinary m_Body;
        CString m_Words;
    };
    const int sizes[] = {0, 1, 4096, 300000};
    CString words;
    while (words.GetLength() < 8000)
        words += u"4k7\u2126 \U0001F50C";

    CDocs set(&m_Database);
    Allowed(
        [&]
        {
            set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Docs]");
            for (const int size : sizes)
            {
                set.AddNew();
                set.m_Id = size;
                set.m_Words = words.Left(words.GetLength() - 3 + size % 2);
                set.m_Body.m_hData = GlobalAlloc(GMEM_MOVEABLE, static_cast<std::size_t>(size));
                set.m_Body.m_dwDataLength = static_cast<DWORD>(size);
                auto* const bytes = static_cast<BYTE*>(GlobalLock(set.m_Body.m_hData));
                for (int index = 0; index < size; ++index)
                    bytes[index] = static_cast<BYTE>(index * 7);
                set.SetFieldNull(1, false);
                set.SetFieldDirty(1);
                EXPECT_TRUE(set.Update());
            }
            set.Requery();
            for (const int size : sizes)
            {
                SCOPED_TRACE(size);
                ASSERT_FALSE(set.IsEOF());
                EXPECT_EQ(set.m_Id, size);
                EXPECT_EQ(set.m_Words, words.Left(words.GetLength() - 3 + size % 2));
                ASSERT_EQ(set.m_Body.m_dwDataLength, static_cast<DWORD>(size))
                    << (int)((BYTE*)GlobalLock(set.m_Body.m_hData))[0] << " "
                    << (int)((BYTE*)GlobalLock(set.m_Body.m_hData))[1] << " "
                    << (int)((BYTE*)GlobalLock(set.m_Body.m_hData))[2];
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
