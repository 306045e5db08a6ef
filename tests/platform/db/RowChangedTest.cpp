#include "RecordsetEditFixture.h"

namespace utility
{

/// Rows that somebody else changed between being read and being written.
class RowChangedTest : public CRecordsetEditTest
{
};

TEST_P(RowChangedTest, OfTwoSessionsThatEditOneRowTheSecondIsToldAndRolledBack)
{
    CDatabase other;
    CStockSet first(&m_Database);
    CStockSet second(&other);
    Allowed(
        [&]
        {
            other.Open(nullptr, FALSE, FALSE, m_Connect);
            for (CStockSet* const set : {&first, &second})
            {
                set->Open();
                set->MoveLast();
                set->MoveFirst();
                set->Edit();
            }
            first.m_Price = u"99";
            EXPECT_TRUE(first.Update());
        });
    second.m_Name = u"mine";

    const CRefusal update = RefusalOf([&] { second.Update(); });
    EXPECT_EQ(update.Code, AFX_SQL_ERROR_ROW_CHANGED) << update.Text;
    second.CancelUpdate();
    EXPECT_EQ(second.m_Name, u"R1");
    const CRefusal removal = RefusalOf([&] { second.Delete(); });
    EXPECT_EQ(removal.State, "44000") << removal.Text;
    EXPECT_EQ(CountRows(u"[Id] = 1 AND [Name] = 'R1' AND [Price] = 99"), 1);

    Allowed(
        [&]
        {
            second.Requery();
            second.Edit();
            second.m_Name = u"mine";
            EXPECT_TRUE(second.Update()) << "what the first one wrote is known now";
        });
    EXPECT_EQ(CountRows(u"[Id] = 1 AND [Name] = 'mine' AND [Price] = 99"), 1);
}

TEST_P(RowChangedTest, RefusedEditLeavesTheCallersTransactionAsItWas)
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
            ASSERT_TRUE(m_Database.BeginTrans());
            set.AddNew();
            set.m_Id = 70;
            EXPECT_TRUE(set.Update());
            set.Edit();
            set.m_Name = u"mine";
        });

    EXPECT_EQ(RefusalOf([&] { set.Update(); }).Code, AFX_SQL_ERROR_ROW_CHANGED);
    set.CancelUpdate();
    EXPECT_TRUE(m_Database.IsInTransaction());
    EXPECT_TRUE(m_Database.CommitTrans());

    EXPECT_EQ(CountRows(u"[Id] = 1 AND [Name] = 'R1' AND [Price] = 99"), 1);
    EXPECT_EQ(CountRows(u"[Id] = 70"), 1);
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

TEST_P(RowChangedTest, RealNumbersAreFoundAgainAndAnotherUsersChangeOfThemIsTold)
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

TEST_P(RowChangedTest, BytesThatAnotherUserChangedAreToldWhereTheyWouldBeLost)
{
    MakeDocs();
    CDocSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open();
            set.AddNew();
            set.m_Id = 1;
            set.SetBody(5000);
            EXPECT_TRUE(set.Update());
            set.Requery();
            set.Edit();
            set.SetBody(6000);
            EXPECT_TRUE(set.Update()) << "the old bytes are found again";
            set.Requery();
        });
    Execute(u"UPDATE [Docs] SET [Body] = NULL");
    Allowed(
        [&]
        {
            set.Edit();
            set.m_Words = u"beside the bytes";
            EXPECT_TRUE(set.Update());
            set.Edit();
            set.SetBody(7000);
        });

    EXPECT_EQ(RefusalOf([&] { set.Update(); }).Code, AFX_SQL_ERROR_ROW_CHANGED);
    set.CancelUpdate();
    EXPECT_EQ(RefusalOf([&] { set.Delete(); }).Code, AFX_SQL_ERROR_ROW_CHANGED);
    Allowed(
        [&]
        {
            set.Requery();
            EXPECT_TRUE(set.IsFieldStatusNull(1)) << "as the other user left it";
            set.Delete();
            set.Requery();
        });
    EXPECT_TRUE(set.IsEOF());
}

UTILITY_ON_ALL_SERVERS(RowChangedTest);

} // namespace utility
